// The whole run on a server built from a shipped scenario.
#ifndef TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_
#define TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "simulator/model/server.h"
#include "support/process.h"

namespace simulator {
struct DescriptorOutcome;
struct Report;
struct SourceVolume;
}  // namespace simulator

namespace tests {

// A server built from a scenario, and a process in which the program has not run yet.
class WholeRun {
 public:
  // `scenario` is the name of a shipped scenario or the path of a scenario file.
  explicit WholeRun(const std::string& scenario);
  ~WholeRun();
  WholeRun(const WholeRun&) = delete;
  WholeRun& operator=(const WholeRun&) = delete;

  int32_t Run();
  // Throws ScenarioError if the scenario lets something fail that the run did not reach.
  void ExpectReached();

  // Returns the report on the last run.
  simulator::Report Report();
  // Returns the closing lines of the reports, without the individual differences.
  std::vector<std::string> ClosingLines();
  simulator::DescriptorOutcome Descriptors();
  // Returns the current attributes, junction and descriptor of each object of the source that
  // exists.
  std::map<std::string, std::string> Copies();
  // Returns the existing files and folders whose attributes differ from those on the source, with
  // both values.
  std::vector<std::string> WrongAttributes();

  simulator::Server& server() { return server_; }
  const std::vector<simulator::SourceVolume>& sources() const;

 private:
  struct Parts;

  const NewProcess process_;
  simulator::Server server_;
  const std::unique_ptr<Parts> parts_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_WHOLE_RUN_SIMULATED_H_
