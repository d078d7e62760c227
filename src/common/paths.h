// Joining of paths. Only the backslash counts as a separator. Pure.
#ifndef COMMON_PATHS_H_
#define COMMON_PATHS_H_

#include <string>

namespace common {

// `folder`, one backslash if it lacks one, and `name`. A leading backslash of `name` stays. Empty
// when either is empty.
std::string JoinPath(const std::string& folder, const std::string& name);

// The same, ending with a backslash.
std::string JoinDir(const std::string& folder, const std::string& name);

}  // namespace common

#endif  // COMMON_PATHS_H_
