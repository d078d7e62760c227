// Accesses to paths that may lead to a drive without a medium.
#ifndef SIMULATOR_API_MEDIUM_H_
#define SIMULATOR_API_MEDIUM_H_

#include <windows.h>

#include <string_view>

#include "simulator/model/server.h"

namespace simulator {

// Shows the critical-error box about the drive that the path leads to, unless the process has set
// SEM_FAILCRITICALERRORS. The box holds the calling thread until it is answered. Returns true if
// the answer is to try again; otherwise returns false.
bool AsksToTryAgain(Server& server, std::string_view path);

// Makes an access, which returns a system error code. The error ERROR_NOT_READY is that of a drive
// without a medium.
template <typename Access>
DWORD AccessMedium(Server& server, std::string_view path, const Access& access) {
  DWORD error = access();
  while (error == ERROR_NOT_READY && AsksToTryAgain(server, path)) error = access();
  return error;
}

}  // namespace simulator

#endif  // SIMULATOR_API_MEDIUM_H_
