// Security descriptors of simulated files as text.
#ifndef TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_
#define TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_

#include <string>

namespace simulator {
class Server;
}  // namespace simulator

namespace tests {

// Owner, group and both lists of what is at that path; "none" if nothing is there.
std::string SddlOf(simulator::Server& server, const std::string& path);

// Sets the descriptor of what is at that path, whatever the rights.
void Secure(simulator::Server& server, const std::string& path, const std::string& sddl);

}  // namespace tests

#endif  // TESTS_SUPPORT_DESCRIPTORS_SIMULATED_H_
