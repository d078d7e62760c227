// The objects that handles of processes, threads and access tokens refer to.
#ifndef SIMULATOR_MODEL_PROCESSES_PROCESS_OBJECTS_H_
#define SIMULATOR_MODEL_PROCESSES_PROCESS_OBJECTS_H_

#include <windows.h>

#include <memory>
#include <string>
#include <utility>

#include "simulator/model/processes/handles.h"

namespace simulator {

class ChildProcess;

class ProcessObject : public Object {
 public:
  explicit ProcessObject(std::shared_ptr<ChildProcess> child) : child_(std::move(child)) {}
  std::string Kind() const override { return "process"; }
  const std::shared_ptr<ChildProcess>& Child() const { return child_; }

 private:
  const std::shared_ptr<ChildProcess> child_;
};

// A thread of the program or of a child.
class ThreadObject : public Object {
 public:
  std::string Kind() const override { return "thread"; }
};

// The access token of the simulated process.
class Token : public Object {
 public:
  explicit Token(DWORD access) : access_(access) {}
  std::string Kind() const override { return "token"; }
  DWORD Access() const { return access_; }  // the access that it was opened with

 private:
  const DWORD access_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_PROCESS_OBJECTS_H_
