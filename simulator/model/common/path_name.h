// Paths taken apart as Win32 takes them apart, before any file system is asked.
#ifndef SIMULATOR_MODEL_COMMON_PATH_NAME_H_
#define SIMULATOR_MODEL_COMMON_PATH_NAME_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct PathName {
  DWORD error = ERROR_SUCCESS;     // of a path that leads to nothing a server here could have
  char letter = 0;                 // upper case; no letter when the path names no drive: '{'
  std::vector<std::string> names;  // below the root; empty for the root itself
  bool ends_in_separator = false;
  size_t length = 0;      // of the full path, in UTF-16 units; 0 for the empty path and for blanks
  bool verbatim = false;  // names are as they came, whatever they are; no MAX_PATH bounds them
};

// The full path. Both slashes separate, several count as one; "." and ".." are resolved, never
// above the root. The last name loses its final dots and blanks unless a separator follows, every
// other name one single final dot. A path without a drive, or with a drive and no separator behind
// it, starts from the current directory, itself a full path.
//
// Behind "\\?\" the path is verbatim: only backslashes separate, and nothing is resolved or lost.
// No server answers to a network path, and there is no device but the drives: "\\.\x".
PathName ParsePath(std::string_view path, std::string_view current_directory);

// The names of a path that starts behind a root: "Data\a.txt".
std::vector<std::string> NamesBelowRoot(std::string_view path);

// What a drive's name begins with among those of the system's own.
inline constexpr std::string_view kNtPrefix = "\\??\\";

// The verbatim path "\??\C:\Data" that a junction holds. What does not begin with "\??\" is
// ERROR_INVALID_REPARSE_DATA.
PathName ParseNtPath(std::string_view path);

// The full path as text, letters in the case they came in; empty for the empty path and for blanks.
// What stands behind "\\?\" is resolved here, too.
std::string FullPathName(std::string_view path, std::string_view current_directory);

// Whether a file or folder may have that name. No volume here keeps streams, so a colon is refused.
bool IsValidName(std::string_view name);

// What names are compared by: the name with its ASCII letters lowered.
std::string NameKey(std::string_view name);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_PATH_NAME_H_
