#include "simulator/model/processes/pipe.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>

namespace simulator {

class Pipe {
 public:
  DWORD Read(char* buffer, size_t size, size_t* count, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    *count = 0;
    const bool awaited = readable_.wait(lock, stop, [this] {
      return written_ != taken_ || !empty_writes_.empty() || !write_end_open_;
    });
    if (!awaited) return ERROR_PROCESS_ABORTED;
    uint64_t end = written_;
    if (!empty_writes_.empty()) {
      end = empty_writes_.front();
      if (end == taken_) {
        empty_writes_.pop_front();
        return ERROR_SUCCESS;
      }
    }
    if (end == taken_) return ERROR_BROKEN_PIPE;
    const size_t length = std::min(size, static_cast<size_t>(end - taken_));
    const size_t at = static_cast<size_t>(taken_ % kCapacity);
    const size_t first = std::min(length, kCapacity - at);
    std::copy_n(bytes_.data() + at, first, buffer);
    std::copy_n(bytes_.data(), length - first, buffer + first);
    taken_ += length;
    *count = length;
    writable_.notify_all();
    return ERROR_SUCCESS;
  }

  DWORD Write(std::string_view bytes, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    if (!read_end_open_) return ERROR_NO_DATA;
    if (bytes.empty()) {
      empty_writes_.push_back(written_);
      readable_.notify_all();
    }
    while (!bytes.empty()) {
      const bool awaited = writable_.wait(
          lock, stop, [this] { return written_ - taken_ < kCapacity || !read_end_open_; });
      if (!awaited || !read_end_open_) return ERROR_BROKEN_PIPE;
      Put(&bytes);
      readable_.notify_all();
    }
    return ERROR_SUCCESS;
  }

  void CloseReadEnd() {
    const std::lock_guard lock(mutex_);
    read_end_open_ = false;
    writable_.notify_all();
  }

  void CloseWriteEnd() {
    const std::lock_guard lock(mutex_);
    write_end_open_ = false;
    readable_.notify_all();
  }

 private:
  static constexpr size_t kCapacity = 4096;

  // Moves what there is room for.
  void Put(std::string_view* bytes) {
    const size_t room = kCapacity - static_cast<size_t>(written_ - taken_);
    const size_t length = std::min(room, bytes->size());
    const size_t at = static_cast<size_t>(written_ % kCapacity);
    const size_t first = std::min(length, kCapacity - at);
    std::copy_n(bytes->data(), first, bytes_.data() + at);
    std::copy_n(bytes->data() + first, length - first, bytes_.data());
    written_ += length;
    bytes->remove_prefix(length);
  }

  std::mutex mutex_;
  std::condition_variable_any readable_;
  std::condition_variable_any writable_;
  std::array<char, kCapacity> bytes_;  // a ring
  uint64_t written_ = 0;               // bytes since the pipe was made
  uint64_t taken_ = 0;
  std::deque<uint64_t> empty_writes_;  // what was written before each
  bool read_end_open_ = true;
  bool write_end_open_ = true;
};

PipeReadEnd::~PipeReadEnd() { pipe_->CloseReadEnd(); }

DWORD PipeReadEnd::Read(char* buffer, size_t size, size_t* count, const std::stop_token& stop) {
  return pipe_->Read(buffer, size, count, stop);
}

PipeWriteEnd::~PipeWriteEnd() { pipe_->CloseWriteEnd(); }

DWORD PipeWriteEnd::Write(std::string_view bytes, const std::stop_token& stop) {
  return pipe_->Write(bytes, stop);
}

PipeEnds MakePipe() {
  const auto pipe = std::make_shared<Pipe>();
  return {std::make_shared<PipeReadEnd>(pipe), std::make_shared<PipeWriteEnd>(pipe)};
}

}  // namespace simulator
