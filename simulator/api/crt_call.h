// The first and last steps, as in call.h, of functions of the C runtime, which report errors
// through errno.
#ifndef SIMULATOR_API_CRT_CALL_H_
#define SIMULATOR_API_CRT_CALL_H_

#include <windows.h>

#include <optional>
#include <string>

#include "simulator/api/call.h"
#include "simulator/model/server.h"

namespace simulator {

// Returns the errno to which the Windows C runtime maps a system error code.
int ErrnoOf(DWORD error);

// A call of the C runtime. The last error is not preserved, because the runtime calls the system.
//
//   int _mkdir(const char* path) {
//     CrtCall call("_mkdir", path);
//     if (call.fails()) return -1;  // errno is the fault's
//     return call.Done(call.server().file_system().MakeDirectory(path)) ? 0 : -1;
//   }
class CrtCall {
 public:
  template <typename... Arguments>
  explicit CrtCall(const char* name, const Arguments&... arguments)
      : CrtCall(Entry{name, TraceList(arguments...)}) {}

  Server& server() const { return server_; }

  // Returns true if a fault is due or the process has ended; otherwise returns false. In the first
  // case errno is the error code.
  bool fails() const { return fault_.has_value(); }

  // Returns true if `error` is ERROR_SUCCESS; otherwise sets errno and returns false.
  bool Done(DWORD error) const;

  // Fails the call with an error of the runtime itself: sets errno and returns `value`.
  template <typename Value>
  Value Refuse(Value value, int error_number) const {
    SetErrno(error_number);
    return value;
  }

 private:
  struct Entry {
    const char* name;
    std::string arguments;
  };
  explicit CrtCall(Entry entry);
  static void SetErrno(int error_number);

  const PlatformScope scope_;
  Server& server_;
  std::optional<uint32_t> fault_;
};

}  // namespace simulator

#endif  // SIMULATOR_API_CRT_CALL_H_
