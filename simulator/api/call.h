// The first and last steps of every entry point of the simulated platform: number and trace the
// call, query a due fault, and set the last error as Windows does, or to a value that no program
// may rely on.
#ifndef SIMULATOR_API_CALL_H_
#define SIMULATOR_API_CALL_H_

#include <windows.h>

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

// Notifies the watcher of calls, then numbers and records the call. Returns the error code that the
// call must fail with if a fault is due; otherwise returns nothing. Once the process has ended,
// returns `ended_code` and does not record the call.
std::optional<uint32_t> EnterCall(Server& server, const char* name, std::string arguments,
                                  uint32_t ended_code);

// Aborts the process with a line that names the unsupported feature, as Unsupported does.
[[noreturn]] void UnsupportedCall(std::string_view what);

// Returns one argument as the trace shows it: text in quotation marks, numbers in decimal, handles
// and pointers in hexadecimal, null as "null".
std::string TraceText(std::nullptr_t);
std::string TraceText(const char* text);
std::string TraceText(const std::string& text);
std::string TraceText(const wchar_t* text);
std::string TraceText(int64_t number);
std::string TraceText(uint64_t number);
std::string TraceText(int number);
std::string TraceText(DWORD number);
std::string TraceText(const void* pointer);

// Returns the arguments of one call, separated by ", ".
template <typename... Arguments>
std::string TraceList(const Arguments&... arguments) {
  const PlatformScope scope;
  std::string text;
  ((text += (text.empty() ? "" : ", ") + TraceText(arguments)), ...);
  return text;
}

// A Win32 call.
//
//   BOOL WINAPI DeleteFileA(LPCSTR path) {
//     Call call("DeleteFileA", path);
//     if (call.fails()) return FALSE;             // the last error is the fault's
//     return call.Done(call.server().file_system().Delete(path));
//   }
class Call {
 public:
  template <typename... Arguments>
  explicit Call(const char* name, const Arguments&... arguments)
      : Call(Entry{name, TraceList(arguments...)}) {}

  Server& server() const { return server_; }

  // Returns true if a fault is due or the process has ended; otherwise returns false. In the first
  // case the last error is the error code.
  bool fails() const { return fault_.has_value(); }

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

 private:
  struct Entry {
    const char* name;
    std::string arguments;
  };
  explicit Call(Entry entry);

  const PlatformScope scope_;
  Server& server_;
  std::optional<uint32_t> fault_;
};

}  // namespace simulator

#endif  // SIMULATOR_API_CALL_H_
