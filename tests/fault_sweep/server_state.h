// What a server has that the program may change.
#ifndef TESTS_FAULT_SWEEP_SERVER_STATE_H_
#define TESTS_FAULT_SWEEP_SERVER_STATE_H_

#include <map>
#include <string>
#include <vector>

namespace simulator {
class Server;
struct Scenario;
}  // namespace simulator

namespace fault_sweep {

// By name: "letter of disk 1, Databases", "boot entry {bootmgr}", "boot entries", "Databases:
// Data\x.txt". A file is its attributes, its descriptor, where it leads to as a junction, and its
// bytes, but for those of an exported boot store: what a second run exports may have been repaired
// in part. The logs and the tools' scripts are left out altogether.
using ServerState = std::map<std::string, std::string>;

ServerState StateOf(simulator::Server& server, const simulator::Scenario& scenario);

// The names of what is not the same in both.
std::vector<std::string> Differences(const ServerState& expected, const ServerState& found);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_SERVER_STATE_H_
