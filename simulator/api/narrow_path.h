// Paths of those narrow calls that make them wide in a buffer of the thread's.
#ifndef SIMULATOR_API_NARROW_PATH_H_
#define SIMULATOR_API_NARROW_PATH_H_

#include <windows.h>

#include "simulator/model/common/utf8.h"

namespace simulator {

// ERROR_SUCCESS, or why no look-up is made. Not even a verbatim path may be longer than that
// buffer.
inline DWORD CheckNarrowPath(LPCSTR path) {
  if (path == nullptr) return ERROR_PATH_NOT_FOUND;
  return Utf16Length(path) > MAX_PATH ? ERROR_FILENAME_EXCED_RANGE : ERROR_SUCCESS;
}

}  // namespace simulator

#endif  // SIMULATOR_API_NARROW_PATH_H_
