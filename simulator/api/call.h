// The first and last steps of every entry point of the simulated platform: number and trace the
// call, query a due fault, and set the last error as Windows does, or to a value that no program
// may rely on.
#ifndef SIMULATOR_API_CALL_H_
#define SIMULATOR_API_CALL_H_

#include <windows.h>

#include <cerrno>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/processes/platform_scope.h"
#include "simulator/model/server.h"

namespace simulator {

// The last error after a call that succeeded. It is not an error code of Windows.
inline constexpr DWORD kSpoiltLastError = 0x0BADC0DE;

// Aborts the process with a line that names the unsupported feature. Declared here and in
// model/common/unsupported.h, so that a change there does not rebuild every call.
[[noreturn]] void Unsupported(std::string_view what);

// Returns the errno to which the Windows C runtime maps a system error code.
int ErrnoOf(DWORD error);

// Returns one argument as the trace shows it: text in quotation marks, numbers in decimal, handles
// and pointers in hexadecimal, null as "null".
std::string TraceText(std::nullptr_t);
std::string TraceText(const char* text);
std::string TraceText(const std::string& text);
std::string TraceText(const wchar_t* text);
std::string TraceText(const std::wstring& text);
std::string TraceText(const void* pointer);
std::string TraceText(std::integral auto number) { return std::to_string(number); }

// Returns the arguments of one call, separated by ", ".
template <typename... Arguments>
std::string TraceList(const Arguments&... arguments) {
  const PlatformScope scope;
  std::string text;
  ((text += (text.empty() ? "" : ", ") + TraceText(arguments)), ...);
  return text;
}

// A call that has begun.
class EnteredCall {
 public:
  Server& server() const { return server_; }

  // Returns true if a fault is due or the process has ended; otherwise returns false. In the first
  // case the last error, or errno, is the error code.
  bool fails() const { return fault_.has_value(); }

 protected:
  // Notifies the watcher of calls, then numbers and records the call. Once the process has ended,
  // the call fails with `ended_code` and is not recorded.
  EnteredCall(const char* name, std::string arguments, uint32_t ended_code);

  uint32_t fault() const { return fault_.value(); }

 private:
  const PlatformScope scope_;
  Server& server_;
  std::optional<uint32_t> fault_;
};

// A Win32 call.
//
//   BOOL WINAPI DeleteFileA(LPCSTR path) {
//     Call call("DeleteFileA", path);
//     if (call.fails()) return FALSE;             // the last error is the fault's
//     return call.Done(call.server().file_system().Delete(path));
//   }
class Call : public EnteredCall {
 public:
  template <typename... Arguments>
  explicit Call(const char* name, const Arguments&... arguments)
      : EnteredCall(name, TraceList(arguments...), ERROR_PROCESS_ABORTED) {
    if (fails()) ::SetLastError(fault());
  }

  // Returns TRUE if `error` is ERROR_SUCCESS; otherwise returns FALSE. Sets the last error to
  // `error`, or to kSpoiltLastError after a success, so that a program that reads the last error
  // without a failure is detected.
  BOOL Done(DWORD error) const;
  template <typename Value>
  Value Succeed(Value value) const {
    Done(ERROR_SUCCESS);
    return value;
  }
  template <typename Value>
  Value Fail(Value value, DWORD error) const {
    Done(error);
    return value;
  }
};

// A call of the C runtime, which reports errors through errno. The last error is not preserved,
// because the runtime calls the system.
//
//   int _mkdir(const char* path) {
//     CrtCall call("_mkdir", path);
//     if (call.fails()) return -1;  // errno is the fault's
//     return call.Done(call.server().file_system().MakeDirectory(path)) ? 0 : -1;
//   }
class CrtCall : public EnteredCall {
 public:
  template <typename... Arguments>
  explicit CrtCall(const char* name, const Arguments&... arguments)
      : EnteredCall(name, TraceList(arguments...), EIO) {
    if (fails()) SetErrno(static_cast<int>(fault()));
  }

  // Returns true if `error` is ERROR_SUCCESS; otherwise sets errno and returns false.
  bool Done(DWORD error) const;

  // Fails the call with an error of the runtime itself: sets errno and returns `value`.
  template <typename Value>
  Value Refuse(Value value, int error_number) const {
    SetErrno(error_number);
    return value;
  }

 private:
  static void SetErrno(int error_number);
};

}  // namespace simulator

#endif  // SIMULATOR_API_CALL_H_
