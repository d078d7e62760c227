// What every entry point of the simulated platform does first and last: it numbers and traces the
// call, asks whether a fault is due, and leaves the last error as Windows or worse.
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

// The last error after a call that did not fail: no code of Windows.
inline constexpr DWORD kSpoiltLastError = 0x0BADC0DE;

// Tells who watches the calls, numbers the call and keeps it, and returns the code that it must
// fail with: `ended_code` once the process has ended, else that of a fault that is due.
std::optional<uint32_t> EnterCall(Server& server, const char* name, std::string arguments,
                                  uint32_t ended_code);

// Ends the process with a line that names what a call does not honour, as Unsupported does.
[[noreturn]] void UnsupportedCall(std::string_view what);

// One argument as the trace shows it: text in quotation marks, numbers in decimal, handles and
// pointers in hexadecimal, null as "null".
std::string TraceText(std::nullptr_t);
std::string TraceText(const char* text);
std::string TraceText(const std::string& text);
std::string TraceText(const wchar_t* text);
std::string TraceText(int64_t number);
std::string TraceText(uint64_t number);
std::string TraceText(int number);
std::string TraceText(DWORD number);
std::string TraceText(const void* pointer);

// The arguments of one call.
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

  // Whether a fault is due or the process has ended; the last error is then the code for it.
  bool fails() const { return fault_.has_value(); }

  // Sets the last error to `error` and returns whether it is ERROR_SUCCESS, in which case the last
  // error is spoilt, so that reading it without a failure shows.
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
