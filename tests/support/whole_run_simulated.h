// The whole run on a server made from a shipped scenario.
#ifndef TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_
#define TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "simulator/model/server.h"

namespace simulator {
struct DescriptorOutcome;
struct SourceVolume;
}  // namespace simulator

namespace tests {

// A server made from a scenario, and a process in which the program has not run yet.
class WholeRun {
 public:
  explicit WholeRun(const std::string& name);
  ~WholeRun();
  WholeRun(const WholeRun&) = delete;
  WholeRun& operator=(const WholeRun&) = delete;

  int32_t Run();

  // Without what is shown of each difference.
  std::vector<std::string> ClosingLines();
  simulator::DescriptorOutcome Descriptors();
  // What the source had of each volume as it is now: attributes, descriptor, junction.
  std::map<std::string, std::string> Copies();
  // How the files and folders that are there differ in their attributes from the source's.
  std::vector<std::string> WrongAttributes();

  simulator::Server& server() { return server_; }
  const std::vector<simulator::SourceVolume>& sources() const;

 private:
  struct Parts;

  simulator::Server server_;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_
