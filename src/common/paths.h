// Joining of paths. Only the backslash is a separator. Pure.
#ifndef COMMON_PATHS_H_
#define COMMON_PATHS_H_

#include <string>

namespace common {

// Returns `folder`, a backslash if it does not end with one, and `name`. A leading backslash of
// `name` is kept. Empty if either argument is empty.
std::string JoinPath(const std::string& folder, const std::string& name);

// Like JoinPath, but the result ends with a backslash.
std::string JoinDir(const std::string& folder, const std::string& name);

}  // namespace common

#endif  // COMMON_PATHS_H_
