// Files of the C runtime: streams, the existence test and new directories.
#include <windows.h>

#include <direct.h>
#include <io.h>
#include <share.h>
#include <stdio.h>

#include <cerrno>
#include <memory>
#include <string>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/api/crt_file.h"
#include "simulator/api/medium.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/files/files.h"

namespace {

using simulator::AccessMedium;
using simulator::CrtCall;
using simulator::CrtFile;

ssize_t ReadCookie(void* cookie, char* buffer, size_t size) {
  return static_cast<CrtFile*>(cookie)->Read(buffer, size);
}

// The host expects 0, not -1, of a write that failed.
ssize_t WriteCookie(void* cookie, const char* text, size_t size) {
  const int written = static_cast<CrtFile*>(cookie)->Write(text, size);
  return written < 0 ? 0 : written;
}

// Positions are refused, as those of a pipe are: a text file has none that mean bytes.
int SeekCookie(void*, off64_t*, int) {
  errno = ESPIPE;
  return -1;
}

int CloseCookie(void* cookie) {
  const std::unique_ptr<CrtFile> file(static_cast<CrtFile*>(cookie));
  return file->Close() ? 0 : -1;
}

FILE* OpenStream(const char* path, CrtFile::PathText text, const std::string& mode, int share) {
  if (share != _SH_DENYNO) simulator::Unsupported("a sharing mode other than _SH_DENYNO");
  std::unique_ptr<CrtFile> file = CrtFile::Open(path, text, mode);
  if (!file) return nullptr;
  // The host knows no "t" and wants the "+" next to the letter.
  std::string host_mode = mode.substr(0, 1);
  if (mode.find('+') != std::string::npos) host_mode += '+';
  FILE* const stream = fopencookie(file.get(), host_mode.c_str(),
                                   {ReadCookie, WriteCookie, SeekCookie, CloseCookie});
  if (stream != nullptr) static_cast<void>(file.release());  // the stream's, until CloseCookie
  return stream;
}

}  // namespace

FILE* _fsopen(const char* path, const char* mode, int share) {
  return OpenStream(path, CrtFile::PathText::kAnsi, mode == nullptr ? "" : mode, share);
}

FILE* _wfsopen(const wchar_t* path, const wchar_t* mode, int share) {
  const std::string narrow_path = path == nullptr ? "" : simulator::Utf8FromWide(path);
  return OpenStream(narrow_path.c_str(), CrtFile::PathText::kUtf8,
                    mode == nullptr ? "" : simulator::Utf8FromWide(mode), share);
}

int _access(const char* path, int mode) {
  constexpr int kWrite = 2;
  constexpr int kRead = 4;
  CrtCall call("_access", path, mode);
  if (call.fails()) return -1;
  if (path == nullptr || (mode & ~(kRead | kWrite)) != 0) return call.Refuse(-1, EINVAL);
  DWORD attributes = 0;
  const std::string utf8 = simulator::FromAnsi(call, path);
  const DWORD error = AccessMedium(call.server(), utf8, [&] {
    return call.server().file_system().Attributes(utf8, &attributes);
  });
  if (!call.Done(error)) return -1;
  const bool is_read_only =
      (attributes & FILE_ATTRIBUTE_READONLY) != 0 && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
  if (is_read_only && (mode & kWrite) != 0) return call.Refuse(-1, EACCES);
  return 0;
}

int _mkdir(const char* path) {
  CrtCall call("_mkdir", path);
  if (call.fails()) return -1;
  if (path == nullptr) return call.Refuse(-1, EINVAL);
  const std::string utf8 = simulator::FromAnsi(call, path);
  const DWORD error = AccessMedium(call.server(), utf8,
                                   [&] { return call.server().file_system().MakeDirectory(utf8); });
  return call.Done(error) ? 0 : -1;
}
