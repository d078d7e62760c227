// A drive without a medium: an empty card reader, or a DVD drive without a disc.
#ifndef TESTS_SUPPORT_EMPTY_DRIVE_H_
#define TESTS_SUPPORT_EMPTY_DRIVE_H_

#include <optional>
#include <string>

namespace tests {

// Returns the root of one, such as "e:\", or nothing if the host has none. In native builds it is
// added to the existing server, as an empty DVD drive. On Windows, call it with
// SEM_FAILCRITICALERRORS set.
std::optional<std::string> RootOfEmptyDrive();

}  // namespace tests

#endif  // TESTS_SUPPORT_EMPTY_DRIVE_H_
