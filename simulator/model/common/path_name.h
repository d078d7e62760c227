// Parsing of paths as Win32 does it, before a file system is accessed.
#ifndef SIMULATOR_MODEL_COMMON_PATH_NAME_H_
#define SIMULATOR_MODEL_COMMON_PATH_NAME_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct PathName {
  DWORD error = ERROR_SUCCESS;     // of a path that cannot exist on a simulated server
  char letter = 0;                 // upper case; not a letter if the path names no drive: '{'
  std::vector<std::string> names;  // below the root; empty for the root itself
  bool ends_in_separator = false;
  size_t length = 0;      // of the full path, in UTF-16 units; 0 if empty or only spaces
  bool verbatim = false;  // names are unchanged and unchecked; MAX_PATH does not apply
};

// Parses a path into its full path. Both slashes are separators, and several in a row are one
// separator. "." and ".." are resolved, never above the root. The last name loses its trailing dots
// and spaces unless a separator follows; every other name loses one trailing dot. A path without a
// drive, or with a drive that no separator follows, starts from the current directory, which is
// itself a full path.
//
// After "\\?\" the path is verbatim: only backslashes are separators, and names are neither
// resolved nor shortened. Network paths fail, and so do paths of devices other than drives, such as
// "\\.\x".
PathName ParsePath(std::string_view path, std::string_view current_directory);

// Returns the names of a path that starts after a root: "Data\a.txt".
std::vector<std::string> NamesBelowRoot(std::string_view path);

// The prefix of a drive in the namespace of the kernel.
inline constexpr std::string_view kNtPrefix = "\\??\\";

// Parses the verbatim path that a junction contains, such as "\??\C:\Data". The error is
// ERROR_INVALID_REPARSE_DATA if the path does not begin with "\??\".
PathName ParseNtPath(std::string_view path);

// Returns the full path as text, with the case of letters unchanged, or an empty string if the path
// is empty or consists of spaces. The part after "\\?\" is resolved here, too.
std::string FullPathName(std::string_view path, std::string_view current_directory);

// Returns true if a file or folder may have that name; otherwise returns false. Colons are invalid,
// because simulated volumes do not support streams.
bool IsValidName(std::string_view name);

// Returns the key by which names are compared: the name with its ASCII letters in lower case.
std::string NameKey(std::string_view name);

// Returns true if the key of `a` is less than that of `b`; otherwise returns false.
bool IsNameBefore(std::string_view a, std::string_view b);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_PATH_NAME_H_
