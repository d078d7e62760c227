#include "simulator/model/files/text_file.h"

#include <utility>

namespace simulator {
namespace {

constexpr char kCtrlZ = 0x1A;

}  // namespace

TextFile::TextFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes)
    : file_(std::move(file)), is_text_(translation == Translation::kText) {
  if (is_text_ && reads_and_writes) file_->DropLast(kCtrlZ);
}

DWORD TextFile::Read(char* buffer, size_t size, size_t* read) {
  if (!is_text_) return file_->Read(buffer, size, read);
  *read = 0;
  if (ended_) return ERROR_SUCCESS;
  size_t raw = 0;
  const DWORD error = file_->Read(buffer, size, &raw);
  if (error != ERROR_SUCCESS) return error;

  for (size_t i = 0; i < raw; ++i) {
    if (buffer[i] == kCtrlZ) {
      ended_ = true;
      break;
    }
    char next = 0;
    if (buffer[i] == '\r') {
      if (i + 1 < raw) {
        next = buffer[i + 1];
      } else {
        // The pair may be torn: look one byte further.
        size_t looked = 0;
        file_->Read(&next, 1, &looked);
        if (looked == 1 && next != '\n') file_->StepBack();
      }
      if (next == '\n') ++i;
    }
    buffer[(*read)++] = next == '\n' ? '\n' : buffer[i];
  }
  return ERROR_SUCCESS;
}

DWORD TextFile::Write(std::string_view text, size_t* written) {
  if (!is_text_) return file_->Write(text, written);
  std::string bytes;
  bytes.reserve(text.size() + text.size() / 16);
  for (const char c : text) {
    if (c == '\n') bytes += '\r';
    bytes += c;
  }
  size_t stored = 0;
  const DWORD error = file_->Write(bytes, &stored);
  // A character counts once all its bytes are on the disk.
  *written = 0;
  while (*written < text.size()) {
    const size_t width = text[*written] == '\n' ? 2 : 1;
    if (stored < width) break;
    stored -= width;
    ++*written;
  }
  return error;
}

}  // namespace simulator
