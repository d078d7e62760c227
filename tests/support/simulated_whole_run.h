// The whole run on a server made from a shipped scenario.
#ifndef TESTS_SUPPORT_SIMULATED_WHOLE_RUN_H_
#define TESTS_SUPPORT_SIMULATED_WHOLE_RUN_H_

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "logger/b_logger.h"
#include "restore/run.h"
#include "simulator/model/server.h"
#include "simulator/report_boot.h"
#include "simulator/report_descriptors.h"
#include "simulator/report_junctions.h"
#include "simulator/report_letters.h"
#include "simulator/scenario.h"
#include "support/simulated_descriptors.h"
#include "support/simulated_process.h"

namespace tests {

// A server made from a scenario, and a process in which the program has not run yet.
class WholeRun {
 public:
  explicit WholeRun(const std::string& name)
      : scenario_(simulator::ReadScenario(std::filesystem::path(VANTORO_SCENARIO_DIR) /
                                          (name + ".json"))),
        sources_(simulator::Build(scenario_, server_)) {
    ForgetProcess();
  }
  ~WholeRun() { ForgetProcess(); }
  WholeRun(const WholeRun&) = delete;
  WholeRun& operator=(const WholeRun&) = delete;

  int32_t Run() {
    boot_before_ = server_.boot().store;
    junctions_before_ = simulator::JunctionStates(sources_);
    const HWND window = server_.desktop().CreateWindow();
    logger::BLogger logger("vantoro_restore", "");
    return restore::RestoreWorker(logger, window, "", "");
  }

  // Without what is shown of each difference.
  std::vector<std::string> ClosingLines() {
    const std::string boot = simulator::BootReport(boot_before_, server_.boot().store);
    const std::string letters =
        simulator::LetterReport(simulator::GatherLetters(scenario_, server_));
    const std::string descriptors = simulator::DescriptorReport(Descriptors());
    return {
        boot.substr(boot.rfind("boot: ")), letters.substr(letters.rfind("letters: ")),
        simulator::JunctionReport(simulator::GatherJunctions(sources_, junctions_before_, server_)),
        descriptors.substr(0, descriptors.find('\n') + 1)};
  }

  simulator::DescriptorOutcome Descriptors() {
    return simulator::GatherDescriptors(sources_, server_.security().domains());
  }

  // What the source had of each volume as it is now: attributes, descriptor, junction.
  std::map<std::string, std::string> Copies() {
    std::map<std::string, std::string> all;
    for (const simulator::SourceVolume& volume : sources_) {
      simulator::VisitTree(volume.letter, *volume.root,
                           [&](const std::string& path, const simulator::Node&) {
                             const auto* const node = volume.copy->root->Find(path.substr(3));
                             if (node == nullptr) return;
                             all[path] = std::to_string(node->attributes) + " " +
                                         node->reparse_data + " " + SddlOf(server_, path);
                           });
    }
    return all;
  }

  // How the files and folders that are there differ in their attributes from the source's.
  std::vector<std::string> WrongAttributes() {
    std::vector<std::string> wrong;
    for (const simulator::SourceVolume& volume : sources_) {
      simulator::VisitTree(volume.letter, *volume.root,
                           [&](const std::string& path, const simulator::Node& node) {
                             const auto* const found = volume.copy->root->Find(path.substr(3));
                             if (found == nullptr || found->attributes == node.attributes) return;
                             wrong.push_back(path + " " + std::to_string(node.attributes) + " " +
                                             std::to_string(found->attributes));
                           });
    }
    return wrong;
  }

  simulator::Server& server() { return server_; }
  const std::vector<simulator::SourceVolume>& sources() const { return sources_; }

 private:
  simulator::Server server_;
  const simulator::Scenario scenario_;
  const std::vector<simulator::SourceVolume> sources_;
  simulator::BootStore boot_before_;
  std::vector<simulator::JunctionState> junctions_before_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_WHOLE_RUN_H_
