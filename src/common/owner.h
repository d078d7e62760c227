// RAII owners for Win32 resources.
#ifndef COMMON_OWNER_H_
#define COMMON_OWNER_H_

#include <windows.h>

#include <cstdio>
#include <utility>

namespace common {

// Owns one `Traits::Value` until it is destroyed, reset or released. Traits defines the empty value
// and how to free any other one.
template <typename Traits>
class Unique {
 public:
  using Value = typename Traits::Value;

  Unique() = default;
  explicit Unique(Value value) : value_(value) {}
  Unique(Unique&& other) noexcept : value_(other.release()) {}
  Unique& operator=(Unique&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  ~Unique() { reset(); }

  Value get() const { return value_; }
  explicit operator bool() const { return value_ != Traits::Empty(); }

  // Returns the value and gives up ownership without freeing it.
  Value release() { return std::exchange(value_, Traits::Empty()); }

  void reset(Value value = Traits::Empty()) {
    const Value old = std::exchange(value_, value);
    if (old != Traits::Empty()) Traits::GiveBack(old);
  }

  // Frees the value and returns the address at which a call can store a new one.
  Value* put() {
    reset();
    return &value_;
  }

 private:
  Value value_ = Traits::Empty();
};

// Handles whose failure value is null: processes, threads, pipe ends, tokens.
struct HandleTraits {
  using Value = HANDLE;
  static Value Empty() { return nullptr; }
  static void GiveBack(Value handle) { ::CloseHandle(handle); }
};
using UniqueHandle = Unique<HandleTraits>;

// Handles whose failure value is INVALID_HANDLE_VALUE: files and folders.
struct FileHandleTraits {
  using Value = HANDLE;
  static Value Empty() { return INVALID_HANDLE_VALUE; }
  static void GiveBack(Value handle) { ::CloseHandle(handle); }
};
using UniqueFileHandle = Unique<FileHandleTraits>;

// Memory that is freed with LocalFree.
template <typename Pointee>
struct LocalTraits {
  using Value = Pointee*;
  static Value Empty() { return nullptr; }
  static void GiveBack(Value memory) { ::LocalFree(memory); }
};
template <typename Pointee>
using UniqueLocal = Unique<LocalTraits<Pointee>>;

// Streams of the C runtime.
struct FileTraits {
  using Value = std::FILE*;
  static Value Empty() { return nullptr; }
  static void GiveBack(Value file) { std::fclose(file); }
};
using UniqueFile = Unique<FileTraits>;

// References to COM objects.
template <typename Interface>
struct ComTraits {
  using Value = Interface*;
  static Value Empty() { return nullptr; }
  static void GiveBack(Value object) { object->Release(); }
};
template <typename Interface>
using UniqueCom = Unique<ComTraits<Interface>>;

}  // namespace common

#endif  // COMMON_OWNER_H_
