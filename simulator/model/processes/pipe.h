// Anonymous pipes with a buffer of 4,096 bytes.
//
// An end is closed when the last reference to its object is released. References are handles of the
// program and those that a child inherited.
#ifndef SIMULATOR_MODEL_PROCESSES_PIPE_H_
#define SIMULATOR_MODEL_PROCESSES_PIPE_H_

#include <windows.h>

#include <cstddef>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/model/processes/handles.h"

namespace simulator {

class Pipe;  // the buffer that both ends share; defined in pipe.cpp

class PipeReadEnd : public Object {
 public:
  explicit PipeReadEnd(std::shared_ptr<Pipe> pipe) : pipe_(std::move(pipe)) {}
  ~PipeReadEnd() override;
  std::string Kind() const override { return "pipe read end"; }

  // Waits for bytes and reads up to `size` (at least 1) of them, across the boundaries of writes.
  // Reads none if the next write is one of zero bytes. Returns ERROR_BROKEN_PIPE if the write end
  // is closed and all bytes have been read, or ERROR_PROCESS_ABORTED if `stop` is requested during
  // the wait.
  DWORD Read(char* buffer, size_t size, size_t* count, const std::stop_token& stop = {});

 private:
  const std::shared_ptr<Pipe> pipe_;
};

class PipeWriteEnd : public Object {
 public:
  explicit PipeWriteEnd(std::shared_ptr<Pipe> pipe) : pipe_(std::move(pipe)) {}
  ~PipeWriteEnd() override;
  std::string Kind() const override { return "pipe write end"; }

  // Waits until all bytes are in the buffer. Returns ERROR_NO_DATA if the read end is already
  // closed, or ERROR_BROKEN_PIPE if it is closed, or `stop` is requested, during the wait.
  DWORD Write(std::string_view bytes, const std::stop_token& stop = {});

 private:
  const std::shared_ptr<Pipe> pipe_;
};

struct PipeEnds {
  std::shared_ptr<PipeReadEnd> read;
  std::shared_ptr<PipeWriteEnd> write;
};

PipeEnds MakePipe();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_PIPE_H_
