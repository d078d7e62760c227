#include "support/whole_run_simulated.h"

#include <filesystem>
#include <optional>

#include "logger/b_logger.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/description/tool_history.h"
#include "rehearsal/report/report.h"
#include "restore/run.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/security.h"
#include "support/descriptors_simulated.h"

namespace tests {

namespace {

std::filesystem::path ScenarioFile(const std::string& scenario) {
  if (scenario.ends_with(".json")) return scenario;
  return std::filesystem::path(VANTORO_SCENARIO_DIR) / (scenario + ".json");
}

}  // namespace

struct WholeRun::Parts {
  Parts(const std::string& name, simulator::Server& server)
      : scenario(simulator::ReadScenario(ScenarioFile(name))),
        sources(simulator::Build(scenario, server, nullptr, history)) {}

  const simulator::Scenario scenario;
  const std::shared_ptr<simulator::ToolHistory> history =
      std::make_shared<simulator::ToolHistory>();
  const std::vector<simulator::SourceVolume> sources;
  std::optional<simulator::ReportStart> start;  // of the last run
  int32_t result = 0;
};

WholeRun::WholeRun(const std::string& scenario)
    : parts_(std::make_unique<Parts>(scenario, server_)) {}

WholeRun::~WholeRun() = default;

const std::vector<simulator::SourceVolume>& WholeRun::sources() const { return parts_->sources; }

int32_t WholeRun::Run() {
  parts_->start.emplace(parts_->scenario, parts_->sources, server_);
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);  // as the program begins
  const HWND window = server_.desktop().CreateWindow();
  logger::BLogger logger("vantoro_restore", "");
  parts_->result = restore::RestoreWorker(logger, window, "", "");
  return parts_->result;
}

void WholeRun::ExpectReached() { simulator::ExpectReached(parts_->scenario, server_); }

simulator::Report WholeRun::Report() {
  const bool succeeded = parts_->result == 0;
  const simulator::RunEnd end{
      succeeded ? simulator::RunOutcome::kSucceeded : simulator::RunOutcome::kFailed,
      succeeded ? "" : "code " + std::to_string(parts_->result), false};
  return parts_->start.value().Finish(end, parts_->history->Calls(), server_);
}

std::vector<std::string> WholeRun::ClosingLines() {
  const simulator::Report report = Report();
  const std::string boot = simulator::BootReport(report.boot);
  const std::string letters = simulator::LetterReport(report.letters);
  const std::string descriptors = simulator::DescriptorReport(report.descriptors);
  return {boot.substr(boot.rfind("boot: ")), letters.substr(letters.rfind("letters: ")),
          simulator::JunctionReport(report.junctions),
          descriptors.substr(0, descriptors.find('\n') + 1)};
}

simulator::DescriptorOutcome WholeRun::Descriptors() {
  return simulator::GatherDescriptors(parts_->sources, server_);
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
