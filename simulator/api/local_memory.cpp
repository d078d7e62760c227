// Memory that the program asks for or is handed out, until LocalFree.
#include <windows.h>

#include "simulator/api/call.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/processes/own_process.h"

using simulator::Call;

HLOCAL WINAPI LocalAlloc(UINT flags, SIZE_T size) {
  constexpr SIZE_T kMost = SIZE_T{1} << 31;  // more than any server here would give
  if (flags != LPTR) simulator::Unsupported("LocalAlloc: flags");
  const Call call("LocalAlloc", flags, size);
  if (call.fails()) return nullptr;
  if (size > kMost) return call.Fail(HLOCAL{nullptr}, ERROR_NOT_ENOUGH_MEMORY);
  return call.Succeed(simulator::AllocateLocal(size));
}

HLOCAL WINAPI LocalFree(HLOCAL memory) {
  const Call call("LocalFree", memory);
  if (call.server().own_process().HasEnded()) simulator::FreeLocal(memory);  // it has gone, too
  if (call.fails()) return memory;
  if (memory != nullptr && !simulator::FreeLocal(memory)) {
    return call.Fail(memory, ERROR_INVALID_HANDLE);
  }
  return call.Succeed(static_cast<HLOCAL>(nullptr));
}
