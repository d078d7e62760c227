#include "simulator/api/crt_file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <optional>
#include <string_view>
#include <utility>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/api/medium.h"
#include "simulator/model/files/files.h"

namespace simulator {
namespace {

struct CrtMode {
  OpenMode open;
  Translation translation = Translation::kText;
};

// Nothing for what the runtime refuses.
std::optional<CrtMode> ParseMode(std::string_view text) {
  CrtMode mode;
  switch (text.empty() ? '\0' : text.front()) {
    case 'r':
      mode.open.read = true;
      break;
    case 'w':
      mode.open.write = true;
      mode.open.creation = Creation::kCreateAlways;
      break;
    case 'a':
      mode.open.write = true;
      mode.open.append = true;
      mode.open.creation = Creation::kOpenAlways;
      break;
    default:
      return std::nullopt;
  }
  for (const char c : text.substr(1)) {
    if (c == '+') {
      mode.open.read = mode.open.write = true;
    } else if (c == 'b') {
      mode.translation = Translation::kBinary;
    } else if (c != 't') {
      Unsupported("the file mode \"" + std::string(text) + "\"");
    }
  }
  return mode;
}

}  // namespace

CrtFile::CrtFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes)
    : file_(std::move(file), translation, reads_and_writes) {}

std::unique_ptr<CrtFile> CrtFile::Open(const char* path, PathText text, const std::string& mode) {
  CrtCall call("_open", path, mode);
  if (call.fails()) return nullptr;
  const std::optional<CrtMode> parsed = ParseMode(mode);
  // The runtime takes an empty path for a wrong argument, not for a missing file.
  if (!parsed || path == nullptr || *path == '\0') return call.Refuse(nullptr, EINVAL);
  const std::string utf8 = text == PathText::kAnsi ? FromAnsi(call, path) : path;
  std::shared_ptr<OpenFile> file;
  const DWORD error = AccessMedium(call.server(), utf8, [&] {
    return call.server().file_system().Open(utf8, parsed->open, &file);
  });
  if (!call.Done(error)) return nullptr;
  const bool reads_and_writes = parsed->open.read && parsed->open.write;
  return std::unique_ptr<CrtFile>(
      new CrtFile(std::move(file), parsed->translation, reads_and_writes));
}

int CrtFile::Read(char* buffer, size_t size) {
  size = std::min<size_t>(size, INT_MAX);
  CrtCall call("_read", file_.Path(), size);
  if (call.fails()) return -1;
  size_t read = 0;
  return call.Done(file_.Read(buffer, size, &read)) ? static_cast<int>(read) : -1;
}

int CrtFile::Write(const char* text, size_t size) {
  size = std::min<size_t>(size, INT_MAX);
  CrtCall call("_write", file_.Path(), size);
  if (call.fails()) return -1;
  size_t written = 0;
  const bool all = call.Done(file_.Write({text, size}, &written));
  return all || written > 0 ? static_cast<int>(written) : -1;
}

bool CrtFile::Close() {
  CrtCall call("_close", file_.Path());
  return !call.fails() && call.Done(ERROR_SUCCESS);
}

}  // namespace simulator
