#include "fault_sweep/swept_server.h"

#include <windows.h>

#include <chrono>
#include <filesystem>
#include <utility>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "restore/messages.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/server_tools.h"
#include "support/lost_messages_simulated.h"
#include "support/process.h"

namespace fault_sweep {
namespace {

// Whether a junction of the scenario leads to that folder.
bool IsTarget(const simulator::Scenario& scenario, const std::string& path) {
  constexpr size_t kRoot = 3;  // "C:\\"
  for (const simulator::ScenarioDisk& disk : scenario.disks) {
    for (const simulator::ScenarioPartition& partition : disk.partitions) {
      if (!partition.volume || !partition.volume->source) continue;
      for (const simulator::ScenarioJunction& junction : partition.volume->source->junctions) {
        if (junction.target.substr(kRoot) == path) return true;
      }
    }
  }
  return false;
}

// Of each volume the first folder, with one file in it, and those that junctions lead to.
simulator::Scenario ReadLight(const std::string& name) {
  simulator::Scenario scenario =
      simulator::ReadScenario(std::filesystem::path(VANTORO_SCENARIO_DIR) / (name + ".json"));
  for (simulator::ScenarioDisk& disk : scenario.disks) {
    for (simulator::ScenarioPartition& partition : disk.partitions) {
      if (!partition.volume || !partition.volume->source) continue;
      std::vector<simulator::ScenarioObject> kept;
      for (const simulator::ScenarioObject& folder : partition.volume->source->folders) {
        if (!kept.empty() && !IsTarget(scenario, folder.path)) continue;
        kept.push_back(folder);
        kept.back().folders = 0;
        kept.back().files = kept.size() == 1 ? 1 : 0;
      }
      partition.volume->source->folders = std::move(kept);
    }
  }
  return scenario;
}

void Pause() { std::this_thread::sleep_for(std::chrono::microseconds(20)); }

}  // namespace

SweptServer::SweptServer(const std::string& scenario)
    : scenario_(std::make_unique<const simulator::Scenario>(ReadLight(scenario))) {
  simulator::Build(
      *scenario_, server_,
      [this](const std::string&, const simulator::ChildProcess& child) { TakeTime(child); });
  server_.calls().Watch([this](std::string_view name, const std::string&) { Watch(name); });
  server_.dialogs().HandlePostsAtOnce();
}

SweptServer::~SweptServer() = default;

void SweptServer::Run() {
  StartProcess();
  std::thread process([this] {
    main_thread_ = std::this_thread::get_id();
    if (listener_) listener_();
    server_.own_process().Run(
        [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  });
  process.join();
  break_off_at_ = 0;
  tests::ReleaseLost(server_);
}

void SweptServer::RepairTools() {
  for (const simulator::ScenarioTool& tool : scenario_->tools) {
    if (tool.name != "bcdedit") simulator::Unsupported("a failing tool other than bcdedit");
    server_.processes().Install(
        tool.name,
        [this, real = simulator::BcdeditProgram()](simulator::Server& server,
                                                   simulator::ChildProcess& child) -> DWORD {
          TakeTime(child);
          return child.Terminated() ? 1 : real(server, child);
        });
  }
}

std::string SweptServer::Log() const {
  return server_.files()
      .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
      .value_or("");
}

void SweptServer::StartProcess() {
  tests::ForgetProcess();
  first_call_ = server_.calls().Count();
  begin_ = server_.clock().Milliseconds();
  shows_dialog_ = false;
  has_begun_ = false;
  reading_ = 0;
}

void SweptServer::Watch(std::string_view name) {
  if (listener_) listener_();
  const bool is_main = std::this_thread::get_id() == main_thread_;
  if (is_main && name == "GetMessageW") shows_dialog_ = true;
  if (!is_main) {
    // The run begins once the dialog has come to rest.
    while (!shows_dialog_ && !server_.own_process().HasEnded()) Pause();
    if (!has_begun_) {
      server_.dialogs().WaitUntilIdle(restore::GetDialog());
      // Without the time for which the program has waited for this thread.
      server_.clock().Set(begin_);
    }
    has_begun_ = true;
  }
  // A tool has ended when its exit code is asked for.
  if (name == "GetExitCodeProcess") server_.processes().WaitForAll();
  const int number = server_.calls().Count() + 1;
  if (name == "CreateProcessA") reading_ = 0;
  if (name == "ReadFile") reading_ = number;
  if (break_off_at_ != 0 && number - first_call_ >= break_off_at_) {
    server_.own_process().BreakOff();
  }
}

void SweptServer::TakeTime(const simulator::ChildProcess& child) {
  constexpr int kDuration = 1000;  // milliseconds
  WaitForReader(child);
  if (child.Terminated()) return;
  server_.clock().Advance(kDuration);
  server_.dialogs().WaitUntilIdle(restore::GetDialog());
}

void SweptServer::WaitForReader(const simulator::ChildProcess& child) const {
  while (!child.Terminated() && (reading_ == 0 || server_.calls().Count() < reading_)) {
    Pause();
  }
}

}  // namespace fault_sweep
