// Where the program and the system keep things.
#ifndef COMMON_LOCATIONS_H_
#define COMMON_LOCATIONS_H_

#include <string>

namespace common {

// The folder of the running program's file, without a final backslash; empty, with one line on
// standard output, when it has none. A program path of more than 255 characters is cut before its
// last component is removed: the result is then a folder further up.
std::string GetCurrentDir();

// The user's temporary folder with its final backslash. Empty when it does not fit into 260 bytes,
// and, with one line on standard output, when the system cannot tell.
std::string GetTempDir();

// The lower-case letter of the drive that Windows runs from, 0 when the system cannot tell.
int GetSystemDriveLetter();

}  // namespace common

#endif  // COMMON_LOCATIONS_H_
