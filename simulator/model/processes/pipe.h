// Anonymous pipes: 4,096 bytes between a writer and a reader.
//
// An end is closed when the last reference to its object goes, be it the program's handle or the
// copy that a child inherited.
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

class Pipe;  // what lies between the ends; defined in pipe.cpp

class PipeReadEnd : public Object {
 public:
  explicit PipeReadEnd(std::shared_ptr<Pipe> pipe) : pipe_(std::move(pipe)) {}
  ~PipeReadEnd() override;
  std::string Kind() const override { return "pipe read end"; }

  // Waits for bytes and takes up to `size` (at least 1) of them, across the bounds of writes; none
  // when a write of zero bytes comes next. ERROR_BROKEN_PIPE once the write end is closed and
  // everything is read, ERROR_PROCESS_ABORTED when `stop` is requested while this waits.
  DWORD Read(char* buffer, size_t size, size_t* count, const std::stop_token& stop = {});

 private:
  const std::shared_ptr<Pipe> pipe_;
};

class PipeWriteEnd : public Object {
 public:
  explicit PipeWriteEnd(std::shared_ptr<Pipe> pipe) : pipe_(std::move(pipe)) {}
  ~PipeWriteEnd() override;
  std::string Kind() const override { return "pipe write end"; }

  // Returns when all bytes have found room. ERROR_NO_DATA when the read end is closed already,
  // ERROR_BROKEN_PIPE when it is closed, or `stop` is requested, while this waits for room.
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
