// One-shot file access.
#ifndef COMMON_FILES_H_
#define COMMON_FILES_H_

#include <string>

namespace common {

// Whether something lies at `path`: the C runtime's existence test.
bool Exists(const std::string& path);

// Makes or truncates the text file at `path` and writes all of `text`. When it cannot be opened,
// one line on standard output says why and the result is false. What the runtime has taken counts
// as written: a disk that fills up when the file is closed goes unnoticed.
[[nodiscard]] bool CreateAndWriteFile(const std::string& path, const std::string& text);

// Makes one level. When that fails, one line on standard output says why and the result is false.
[[nodiscard]] bool CreateDir(const std::string& path);

}  // namespace common

#endif  // COMMON_FILES_H_
