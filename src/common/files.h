// Access to files and folders by one call each.
#ifndef COMMON_FILES_H_
#define COMMON_FILES_H_

#include <string>

namespace common {

// Returns true if a file or folder exists at `path`, by the existence test of the C runtime.
bool Exists(const std::string& path);

// Creates or truncates the text file at `path` and writes `text`. If the file cannot be opened,
// prints the reason on standard output and returns false. Returns true if the C runtime has
// accepted all of `text`; an error when the file is closed is not detected.
[[nodiscard]] bool CreateAndWriteFile(const std::string& path, const std::string& text);

// Creates one folder, without its parents. On failure prints the reason on standard output and
// returns false.
[[nodiscard]] bool CreateDir(const std::string& path);

}  // namespace common

#endif  // COMMON_FILES_H_
