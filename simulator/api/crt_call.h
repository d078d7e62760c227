// The same as call.h for what the C runtime offers and fails through errno.
#ifndef SIMULATOR_API_CRT_CALL_H_
#define SIMULATOR_API_CRT_CALL_H_

#include <windows.h>

#include <optional>
#include <string>

#include "simulator/api/call.h"
#include "simulator/model/server.h"

namespace simulator {

// The errno that the Windows C runtime makes of a system error code.
int ErrnoOf(DWORD error);

// A call of the C runtime. The last error is never what it was: the runtime calls the system.
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

  // Whether a fault is due or the process has ended; errno is then the code for it.
  bool fails() const { return fault_.has_value(); }

  // Whether the system error is ERROR_SUCCESS; errno is set when it is not.
  bool Done(DWORD error) const;

  // What the runtime itself refuses.
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
