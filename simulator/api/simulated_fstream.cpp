#include <simulated_fstream.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <optional>

#include "simulator/api/crt_file.h"
#include "simulator/model/common/unsupported.h"

namespace simulator {
namespace {

using std::ios_base;

// fopen's mode for a stream's; nothing for the combinations that the standard refuses.
std::optional<std::string> ModeText(ios_base::openmode mode) {
  if ((mode & ios_base::ate) != 0) Unsupported("a file stream opened at its end");
  const ios_base::openmode kind = mode & ~ios_base::binary;
  std::string text;
  if (kind == ios_base::in) {
    text = "r";
  } else if (kind == ios_base::out || kind == (ios_base::out | ios_base::trunc)) {
    text = "w";
  } else if (kind == ios_base::app || kind == (ios_base::out | ios_base::app)) {
    text = "a";
  } else if (kind == (ios_base::in | ios_base::out)) {
    text = "r+";
  } else if (kind == (ios_base::in | ios_base::out | ios_base::trunc)) {
    text = "w+";
  } else if (kind == (ios_base::in | ios_base::app) ||
             kind == (ios_base::in | ios_base::out | ios_base::app)) {
    text = "a+";
  } else {
    return std::nullopt;
  }
  if ((mode & ios_base::binary) != 0) text += 'b';
  return text;
}

}  // namespace

// One buffer for both directions; its first byte keeps the last character for unget().
class FileBuffer : public std::streambuf {
 public:
  ~FileBuffer() override { Close(); }

  bool IsOpen() const { return file_ != nullptr; }
  bool Open(const std::string& path, ios_base::openmode mode);
  // False when what was still pending could not be written; the file is closed even so.
  bool Close();

 protected:
  int_type underflow() override;
  int_type overflow(int_type c) override;
  int sync() override { return Flush() ? 0 : -1; }
  pos_type seekoff(off_type, ios_base::seekdir, ios_base::openmode) override {
    Unsupported("seeking in a file stream");
  }
  pos_type seekpos(pos_type, ios_base::openmode) override {
    Unsupported("seeking in a file stream");
  }

 private:
  // What could not be written stays pending.
  bool Flush();

  std::unique_ptr<CrtFile> file_;
  ios_base::openmode mode_ = {};
  std::array<char, 4096> buffer_;
};

bool FileBuffer::Open(const std::string& path, ios_base::openmode mode) {
  if (IsOpen()) return false;
  const std::optional<std::string> text = ModeText(mode);
  if (!text) return false;
  file_ = CrtFile::Open(path.c_str(), CrtFile::PathText::kAnsi, *text);
  mode_ = mode;
  return IsOpen();
}

bool FileBuffer::Close() {
  if (!IsOpen()) return false;
  const bool is_flushed = Flush();
  const bool is_closed = file_->Close();
  file_.reset();
  setg(nullptr, nullptr, nullptr);
  setp(nullptr, nullptr);
  return is_flushed && is_closed;
}

bool FileBuffer::Flush() {
  const char* next = pbase();
  while (next < pptr()) {
    const int written = file_->Write(next, static_cast<size_t>(pptr() - next));
    if (written < 0) return false;
    next += written;
  }
  if (pptr() != pbase()) setp(nullptr, nullptr);
  return true;
}

FileBuffer::int_type FileBuffer::underflow() {
  if (gptr() < egptr()) return traits_type::to_int_type(*gptr());
  if (!IsOpen() || (mode_ & ios_base::in) == 0 || !Flush()) return traits_type::eof();
  setp(nullptr, nullptr);
  const bool has_last = gptr() > eback();
  if (has_last) buffer_[0] = gptr()[-1];
  const int read = file_->Read(buffer_.data() + 1, buffer_.size() - 1);
  // The streams turn it into their bad bit.
  if (read < 0) throw ios_base::failure("a file stream cannot read");
  char* const begin = buffer_.data() + 1;
  setg(has_last ? begin - 1 : begin, begin, begin + read);
  return read == 0 ? traits_type::eof() : traits_type::to_int_type(*begin);
}

FileBuffer::int_type FileBuffer::overflow(int_type c) {
  if (!IsOpen() || (mode_ & (ios_base::out | ios_base::app)) == 0) return traits_type::eof();
  if (gptr() < egptr()) Unsupported("writing in the middle of what a file stream has read");
  if (!Flush()) return traits_type::eof();
  setg(nullptr, nullptr, nullptr);
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    *pptr() = traits_type::to_char_type(c);
    pbump(1);
  }
  return traits_type::not_eof(c);
}

FileStream::FileStream() : std::iostream(nullptr), buffer_(std::make_unique<FileBuffer>()) {
  rdbuf(buffer_.get());
}

FileStream::~FileStream() = default;

void FileStream::open(const std::string& path, ios_base::openmode mode) {
  if (buffer_->Open(path, mode)) {
    clear();
  } else {
    setstate(failbit);
  }
}

bool FileStream::is_open() const { return buffer_->IsOpen(); }

void FileStream::close() {
  if (!buffer_->Close()) setstate(failbit);
}

}  // namespace simulator
