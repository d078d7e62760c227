#include "simulator/model/processes/handles.h"

#include <utility>

namespace simulator {
namespace {

constexpr UINT_PTR kStep = 4;  // the two low bits of a handle are the caller's own

}  // namespace

HANDLE Handles::Insert(std::shared_ptr<Object> object, bool inheritable) {
  const std::lock_guard lock(mutex_);
  const UINT_PTR value = next_;
  next_ += kStep;
  entries_.emplace(value, Entry{std::move(object), inheritable});
  return reinterpret_cast<HANDLE>(value);
}

bool Handles::Close(HANDLE handle) {
  std::shared_ptr<Object> object;  // ends behind the lock: its end may take others
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(reinterpret_cast<UINT_PTR>(handle));
  if (found == entries_.end()) return false;
  object = std::move(found->second.object);
  entries_.erase(found);
  return true;
}

void Handles::CloseAll() {
  std::map<UINT_PTR, Entry> entries;  // ends behind the lock
  const std::lock_guard lock(mutex_);
  entries.swap(entries_);
}

std::vector<std::shared_ptr<Object>> Handles::Inheritable() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::shared_ptr<Object>> objects;
  for (const auto& [value, entry] : entries_) {
    if (entry.inheritable) objects.push_back(entry.object);
  }
  return objects;
}

std::vector<std::string> Handles::OpenKinds() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> kinds;
  for (const auto& [value, entry] : entries_) kinds.push_back(entry.object->Kind());
  return kinds;
}

std::shared_ptr<Object> Handles::FindObject(HANDLE handle) const {
  const std::lock_guard lock(mutex_);
  const auto found = entries_.find(reinterpret_cast<UINT_PTR>(handle));
  return found == entries_.end() ? nullptr : found->second.object;
}

}  // namespace simulator
