#include "simulator/model/processes/pipe.h"

#include <algorithm>
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
      return !bytes_.empty() || !empty_writes_.empty() || !write_end_open_;
    });
    if (!awaited) return ERROR_PROCESS_ABORTED;
    size_t end = bytes_.size();
    if (!empty_writes_.empty()) {
      end = static_cast<size_t>(empty_writes_.front() - taken_);
      if (end == 0) {
        empty_writes_.pop_front();
        return ERROR_SUCCESS;
      }
    }
    if (end == 0) return ERROR_BROKEN_PIPE;
    *count = bytes_.copy(buffer, std::min(size, end));
    bytes_.erase(0, *count);
    taken_ += *count;
    writable_.notify_all();
    return ERROR_SUCCESS;
  }

  DWORD Write(std::string_view bytes, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    if (!read_end_open_) return ERROR_NO_DATA;
    if (bytes.empty()) {
      empty_writes_.push_back(taken_ + bytes_.size());
      readable_.notify_all();
    }
    while (!bytes.empty()) {
      const bool awaited = writable_.wait(
          lock, stop, [this] { return bytes_.size() < kCapacity || !read_end_open_; });
      if (!awaited || !read_end_open_) return ERROR_BROKEN_PIPE;
      const std::string_view fitting = bytes.substr(0, kCapacity - bytes_.size());
      bytes_ += fitting;
      bytes.remove_prefix(fitting.size());
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

  std::mutex mutex_;
  std::condition_variable_any readable_;
  std::condition_variable_any writable_;
  std::string bytes_;                  // written and not yet read
  uint64_t taken_ = 0;                 // bytes since the pipe was made
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
