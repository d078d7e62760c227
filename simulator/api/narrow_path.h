// Paths of those ANSI calls that convert the path to UTF-16 in a per-thread buffer.
#ifndef SIMULATOR_API_NARROW_PATH_H_
#define SIMULATOR_API_NARROW_PATH_H_

#include <windows.h>

#include "simulator/model/common/utf8.h"

namespace simulator {

// Returns ERROR_SUCCESS, or the error code that the call fails with before the path is looked up.
// Even a verbatim path must fit into that buffer.
inline DWORD CheckNarrowPath(LPCSTR path) {
  if (path == nullptr) return ERROR_PATH_NOT_FOUND;
  return Utf16Length(path) > MAX_PATH ? ERROR_FILENAME_EXCED_RANGE : ERROR_SUCCESS;
}

}  // namespace simulator

#endif  // SIMULATOR_API_NARROW_PATH_H_
