#include "rehearsal/screen_picture.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "simulator/model/common/utf8.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {
namespace {

constexpr size_t kLogRows = 3;

bool IsWide(wchar_t character) {
  constexpr std::array<std::pair<wchar_t, wchar_t>, 8> kWide = {{
      {0x1100, 0x115F},   // Hangul
      {0x2E80, 0xA4CF},   // radicals to Yi: the Chinese characters are among them
      {0xAC00, 0xD7A3},   // Hangul syllables
      {0xF900, 0xFAFF},   // compatibility ideographs
      {0xFE30, 0xFE6F},   // compatibility forms
      {0xFF00, 0xFF60},   // full-width forms
      {0xFFE0, 0xFFE6},   // full-width signs
      {0x20000, 0x3FFFD}  // ideographs beyond the basic plane
  }};
  return std::any_of(kWide.begin(), kWide.end(), [character](const auto& range) {
    return character >= range.first && character <= range.second;
  });
}

size_t ColumnsOf(wchar_t character) { return IsWide(character) ? 2 : 1; }

// Cut or filled up with blanks. What would steer a terminal becomes a blank.
std::string Fit(const std::string& utf8, size_t columns, char filler = ' ') {
  std::wstring fitting;
  size_t taken = 0;
  for (const wchar_t character : WideFromUtf8(utf8)) {
    const bool is_control = character < L' ' || (character >= 0x7F && character < 0xA0);
    const wchar_t shown = is_control ? L' ' : character;
    if (taken + ColumnsOf(shown) > columns) break;
    fitting += shown;
    taken += ColumnsOf(shown);
  }
  return Utf8FromWide(fitting) + std::string(columns - taken, filler);
}

const ShownControl* FindClass(const ShownDialog& dialog, std::string_view window_class) {
  const auto found = std::find_if(
      dialog.controls.begin(), dialog.controls.end(),
      [&](const ShownControl& control) { return control.window_class == window_class; });
  return found == dialog.controls.end() ? nullptr : &*found;
}

const ShownControl* FindBar(const ShownDialog& dialog) {
  return FindClass(dialog, "msctls_progress32");
}

// What all controls of a class read, each between these.
std::string Texts(const ShownDialog& dialog, std::string_view window_class, std::string_view before,
                  std::string_view after) {
  std::string texts;
  for (const ShownControl& control : dialog.controls) {
    if (control.window_class != window_class) continue;
    if (!texts.empty()) texts += ' ';
    texts.append(before).append(control.text).append(after);
  }
  return texts;
}

std::string Bar(const ShownDialog& dialog, size_t cells) {
  const size_t filled = static_cast<size_t>(BarPercent(dialog)) * cells / 100;
  return "[" + std::string(filled, '=') + std::string(cells - filled, ' ') + "]";
}

std::string StateName(const ShownDialog& dialog) {
  const ShownControl* const bar = FindBar(dialog);
  if (bar == nullptr || bar->state == PBST_NORMAL) return "";
  return bar->state == PBST_ERROR ? " error" : " paused";
}

// The last lines of a text, without the empty one behind a final line end.
std::vector<std::string> LastLines(std::string_view text, size_t count) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    std::string line(text.substr(0, end));
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(std::move(line));
    if (end == std::string_view::npos) break;
    text.remove_prefix(end + 1);
  }
  if (lines.size() > count) lines.erase(lines.begin(), lines.end() - static_cast<ptrdiff_t>(count));
  lines.resize(count);
  return lines;
}

}  // namespace

int BarPercent(const ShownDialog& dialog) {
  const ShownControl* const bar = FindBar(dialog);
  if (bar == nullptr || bar->maximum <= bar->minimum) return 0;
  return (bar->position - bar->minimum) * 100 / (bar->maximum - bar->minimum);
}

size_t Columns(const std::string& utf8) {
  size_t columns = 0;
  for (const wchar_t character : WideFromUtf8(utf8)) columns += ColumnsOf(character);
  return columns;
}

std::string DialogLine(const ShownDialog& dialog) {
  constexpr size_t kCells = 20;
  return dialog.caption + "  " + Bar(dialog, kCells) + StateName(dialog);
}

std::vector<std::string> DialogPicture(const ShownDialog& dialog, size_t columns) {
  constexpr size_t kNarrowest = 40;
  const size_t inside = std::max(columns, kNarrowest) - 4;
  const auto row = [inside](const std::string& text) { return "| " + Fit(text, inside) + " |"; };
  const std::string title = "[" + std::to_string(dialog.small_icon) + "] " + dialog.caption;
  std::vector<std::string> picture = {"+-" + Fit(title + " ", inside, '-') + "-+"};

  const ShownControl* const log = FindClass(dialog, "EDIT");
  for (const std::string& line : LastLines(log != nullptr ? log->text : "", kLogRows)) {
    picture.push_back(row(line));
  }
  const std::string state = StateName(dialog);
  picture.push_back(row(Bar(dialog, inside - 2 - state.size()) + state));

  const std::string buttons = Texts(dialog, "BUTTON", "[ ", " ]");
  const size_t room = inside - std::min(inside, Columns(buttons) + 1);
  picture.push_back(row(Fit(Texts(dialog, "STATIC", "", ""), room) + " " + buttons));
  picture.push_back("+" + std::string(inside + 2, '-') + "+");
  return picture;
}

}  // namespace simulator
