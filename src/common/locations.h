// The folders of the program and of the system.
#ifndef COMMON_LOCATIONS_H_
#define COMMON_LOCATIONS_H_

#include <string>

namespace common {

// Returns the folder of the running program's file, without a final backslash. On failure prints
// the reason on standard output and returns an empty text. A program path of more than 255
// characters is truncated before its last component is removed; the result is then a wrong folder.
std::string GetCurrentDir();

// Returns the user's temporary folder with its final backslash. Empty if the path does not fit into
// 260 bytes. If the system call fails, prints the reason on standard output and returns an empty
// text.
std::string GetTempDir();

// Returns the lower-case drive letter of the system drive, 0 on failure.
int GetSystemDriveLetter();

}  // namespace common

#endif  // COMMON_LOCATIONS_H_
