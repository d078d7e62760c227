// Security descriptors of simulated files as text.
#ifndef TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_
#define TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_

#include <string>

namespace simulator {
class Server;
}  // namespace simulator

namespace tests {

// Returns the owner, group and both lists of the file or folder as text, or "none" if it does not
// exist.
std::string SddlOf(simulator::Server& server, const std::string& path);

// Sets the descriptor of the file or folder without an access check.
void Secure(simulator::Server& server, const std::string& path, const std::string& sddl);

}  // namespace tests

#endif  // TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_
