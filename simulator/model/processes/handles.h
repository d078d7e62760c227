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

// What a handle stands for. An object lives as long as a handle, here or in a child, holds it.
class Object {
 public:
  virtual ~Object() = default;
  // "pipe read end", "process": for leak reports.
  virtual std::string Kind() const = 0;
};

// Thread-safe. Values are never used twice, so a stale handle is always seen as one.
class Handles {
 public:
  HANDLE Insert(std::shared_ptr<Object> object, bool inheritable);

  // Null when the handle is not open or stands for another kind of object.
  template <typename Kind>
  std::shared_ptr<Kind> Find(HANDLE handle) const {
    return std::dynamic_pointer_cast<Kind>(FindObject(handle));
  }

  // False when the handle is not open.
  bool Close(HANDLE handle);
  void CloseAll();

  std::vector<std::shared_ptr<Object>> Inheritable() const;
  // The kinds of all open handles, in the order of their opening.
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
