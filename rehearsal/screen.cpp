#include "rehearsal/screen.h"

#include <algorithm>
#include <utility>

#include "rehearsal/screen_picture.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/nls/code_page.h"

namespace simulator {
namespace {

constexpr size_t kColumns = 78;

// The terminal's escape sequence for the level that a log line names; empty for the plain one.
std::string_view ColourOf(std::string_view line) {
  constexpr std::pair<std::string_view, std::string_view> kColours[] = {
      {"] [Fatal] ", "\x1b[91m"}, {"] [Error] ", "\x1b[91m"}, {"] [Warn] ", "\x1b[93m"},
      {"] [Done] ", "\x1b[92m"},  {"] [Debug] ", "\x1b[90m"},
  };
  for (const auto& [level, colour] : kColours) {
    if (line.find(level) != std::string_view::npos) return colour;
  }
  return "";
}

}  // namespace

void Screen::ShowLog(std::string_view bytes) {
  const std::lock_guard lock(mutex_);
  unfinished_ += bytes;
  std::erase(unfinished_, '\r');
  std::string lines;
  for (size_t end = unfinished_.find('\n'); end != std::string::npos;
       end = unfinished_.find('\n')) {
    const std::string line =
        Utf8FromAnsi(std::string_view(unfinished_).substr(0, end), log_code_page_);
    const std::string_view colour = kind_ == Kind::kTerminal ? ColourOf(line) : "";
    lines.append(colour).append(line).append(colour.empty() ? "" : "\x1b[0m").append("\n");
    unfinished_.erase(0, end + 1);
  }
  PutLines(lines);
}

void Screen::ShowBox(const ShownMessageBox& box, int answer) {
  const std::lock_guard lock(mutex_);
  PutLines("message box [" + box.caption + "]: " + box.text + " -> " +
           (answer == IDOK ? "OK" : "Cancel") + "\n");
}

void Screen::ShowDialog(const ShownDialog& dialog) {
  const std::lock_guard lock(mutex_);
  if (dialog.destroyed) {
    picture_.clear();
    return;
  }
  if (kind_ == Kind::kPlain) {
    const std::string line = DialogLine(dialog);
    if (dialog.visible && line != line_) PutLines("dialog: " + line + "\n");
    if (dialog.visible) line_ = line;
    return;
  }
  std::vector<std::string> picture;
  if (dialog.visible) picture = DialogPicture(dialog, kColumns);
  if (picture == picture_) return;
  Erase();
  picture_ = std::move(picture);
  Draw();
  out_ << std::flush;
}

void Screen::PutLines(std::string_view lines) {
  if (lines.empty()) return;
  Erase();
  out_ << lines;
  Draw();
  out_ << std::flush;
}

void Screen::Erase() {
  if (!picture_.empty()) out_ << "\x1b[" << picture_.size() << "A\x1b[J";
}

void Screen::Draw() {
  for (const std::string& line : picture_) out_ << line << "\n";
}

}  // namespace simulator
