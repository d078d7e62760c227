// The handle table of the simulated process.
#ifndef SIMULATOR_MODEL_PROCESSES_HANDLES_H_
#define SIMULATOR_MODEL_PROCESSES_HANDLES_H_

#include <windows.h>

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace simulator {

// The object that a handle refers to. It exists as long as a handle of this process or of a child
// refers to it.
class Object {
 public:
  virtual ~Object() = default;
  // Returns the kind of object for leak reports: "pipe read end", "process".
  virtual std::string Kind() const = 0;
};

// Thread-safe. Handle values are never reused, so that the use of a closed handle is always
// detected.
class Handles {
 public:
  HANDLE Insert(std::shared_ptr<Object> object, bool inheritable);

  // Returns null if the handle is not open or refers to an object of another kind.
  template <typename Kind>
  std::shared_ptr<Kind> Find(HANDLE handle) const {
    return std::dynamic_pointer_cast<Kind>(FindObject(handle));
  }

  // Returns false if the handle is not open; otherwise closes it and returns true.
  bool Close(HANDLE handle);
  void CloseAll();

  std::vector<std::shared_ptr<Object>> Inheritable() const;
  // Returns the kinds of all open handles, in the order in which they were opened.
  std::vector<std::string> OpenKinds() const;

 private:
  struct Entry {
    std::shared_ptr<Object> object;
    bool inheritable;
  };

  std::shared_ptr<Object> FindObject(HANDLE handle) const;

  mutable std::mutex mutex_;
  std::map<UINT_PTR, Entry> entries_;
  UINT_PTR next_ = 4;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_HANDLES_H_
