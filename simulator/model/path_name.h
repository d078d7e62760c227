// Paths taken apart as Win32 takes them apart, before any file system is asked.
#ifndef SIMULATOR_MODEL_PATH_NAME_H_
#define SIMULATOR_MODEL_PATH_NAME_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct PathName {
  char letter = 0;                 // upper case; no letter when the path names no drive: '{'
  std::vector<std::string> names;  // below the root; empty for the root itself
  bool ends_in_separator = false;
  size_t length = 0;  // of the full path, in UTF-16 units; 0 for the empty path and for blanks
};

// The full path. Both slashes separate, several count as one; "." and ".." are resolved, never
// above the root. The last name loses its final dots and blanks unless a separator follows, every
// other name one single final dot. A path without a drive, or with a drive and no separator behind
// it, starts from the current directory, itself a full path. Network and device paths ("\\server",
// "\\?\") are not supported.
PathName ParsePath(std::string_view path, std::string_view current_directory);

// Whether a file or folder may have that name. No volume here keeps streams, so a colon is refused.
bool IsValidName(std::string_view name);

// What names are compared by: the name with its ASCII letters lowered.
std::string NameKey(std::string_view name);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PATH_NAME_H_
