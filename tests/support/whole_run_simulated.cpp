#include "support/whole_run_simulated.h"

#include <filesystem>

#include "logger/b_logger.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/description/tool_history.h"
#include "rehearsal/report/report_boot.h"
#include "rehearsal/report/report_descriptors.h"
#include "rehearsal/report/report_junctions.h"
#include "rehearsal/report/report_letters.h"
#include "restore/run.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/security.h"
#include "support/descriptors_simulated.h"

namespace tests {

struct WholeRun::Parts {
  Parts(const std::string& name, simulator::Server& server)
      : scenario(simulator::ReadScenario(std::filesystem::path(VANTORO_SCENARIO_DIR) /
                                         (name + ".json"))),
        sources(simulator::Build(scenario, server, nullptr, history)) {}

  const simulator::Scenario scenario;
  const std::shared_ptr<simulator::ToolHistory> history =
      std::make_shared<simulator::ToolHistory>();
  const std::vector<simulator::SourceVolume> sources;
  simulator::BootStore boot_before;
  std::vector<simulator::DiskFacts> disks_before;
  std::vector<simulator::JunctionState> junctions_before;
};

WholeRun::WholeRun(const std::string& name) : parts_(std::make_unique<Parts>(name, server_)) {}

WholeRun::~WholeRun() = default;

const std::vector<simulator::SourceVolume>& WholeRun::sources() const { return parts_->sources; }

int32_t WholeRun::Run() {
  parts_->boot_before = server_.boot().store;
  parts_->disks_before = simulator::GatherDisks(server_);
  parts_->junctions_before = simulator::JunctionStates(parts_->sources);
  const HWND window = server_.desktop().CreateWindow();
  logger::BLogger logger("vantoro_restore", "");
  return restore::RestoreWorker(logger, window, "", "");
}

std::vector<std::string> WholeRun::ClosingLines() {
  const std::string boot =
      simulator::BootReport(simulator::GatherBoot(parts_->scenario, parts_->boot_before, server_));
  const std::string letters = simulator::LetterReport(Letters());
  const std::string descriptors = simulator::DescriptorReport(Descriptors());
  return {boot.substr(boot.rfind("boot: ")), letters.substr(letters.rfind("letters: ")),
          simulator::JunctionReport(
              simulator::GatherJunctions(parts_->sources, parts_->junctions_before, server_)),
          descriptors.substr(0, descriptors.find('\n') + 1)};
}

std::vector<simulator::VolumeLetters> WholeRun::Letters() {
  return simulator::GatherLetters(parts_->scenario, parts_->disks_before, parts_->history->Calls(),
                                  simulator::LettersOn(server_));
}

void WholeRun::ExpectReached() { simulator::ExpectReached(parts_->scenario, server_); }

simulator::DescriptorOutcome WholeRun::Descriptors() {
  return simulator::GatherDescriptors(parts_->sources, server_.security().domains());
}

std::map<std::string, std::string> WholeRun::Copies() {
  std::map<std::string, std::string> all;
  for (const simulator::SourceVolume& volume : parts_->sources) {
    simulator::VisitTree(volume.letter, *volume.root,
                         [&](const std::string& path, const simulator::Node&) {
                           const auto* const node = volume.copy->root->Find(path.substr(3));
                           if (node == nullptr) return;
                           all[path] = std::to_string(node->attributes) + " " +
                                       node->contents().reparse_data + " " + SddlOf(server_, path);
                         });
  }
  return all;
}

std::vector<std::string> WholeRun::WrongAttributes() {
  std::vector<std::string> wrong;
  for (const simulator::SourceVolume& volume : parts_->sources) {
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

}  // namespace tests
