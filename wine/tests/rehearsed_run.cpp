#include "wine/tests/rehearsed_run.h"

#include <atomic>
#include <thread>

#include "common/paths.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/files/files.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/lost_messages_simulated.h"
#include "support/process.h"

namespace tests {
namespace {

constexpr char kLinkName[] = "\\vantoro_restore.exe.lnk";

// The user accepts what the box offers, but for a restart that he does not want.
int Answer(const simulator::ShownMessageBox& box, bool restarts) {
  constexpr UINT kIcon = 0xF0;
  return (box.type & kIcon) == MB_ICONQUESTION && !restarts ? IDCANCEL : IDOK;
}

class HeldTool {
 public:
  HeldTool(const std::string& name, simulator::Server& server) : server_(server) {
    server.processes().Install(name, [this](simulator::Server&, simulator::ChildProcess& child) {
      // More than a pipe holds: behind it the program reads, and has listed the child.
      child.WriteOutput(std::string(5000, 'x'));
      is_held_ = true;
      is_held_.notify_all();
      child.WaitUntilTerminated();
      return DWORD{1};
    });
    user_ = std::thread([this] {
      const HWND dialog = server_.dialogs().WaitForDialog();
      is_held_.wait(false);
      server_.dialogs().Click(dialog, IDCANCEL);
    });
  }
  ~HeldTool() { user_.join(); }
  HeldTool(const HeldTool&) = delete;
  HeldTool& operator=(const HeldTool&) = delete;

 private:
  simulator::Server& server_;
  std::atomic<bool> is_held_ = false;
  std::thread user_;
};

void RunProgram(simulator::Server& server, RehearsedRun& run) {
  run.exit_code = server.own_process().Run(
      [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
}

std::string LogOf(simulator::Server& server, const std::string& folder) {
  std::string text;
  DWORD attributes = 0;
  if (server.file_system().Attributes(folder, &attributes) != ERROR_SUCCESS ||
      (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    return text;
  }
  for (const std::string& name : server.files().List(folder)) {
    text += server.files().Read(common::JoinPath(folder, name)).value_or("");
  }
  return text;
}

}  // namespace

RehearsedRun Rehearse(const simulator::Scenario& scenario, const RehearsalOptions& options) {
  const NewProcess process;
  RehearsedRun run;
  simulator::Server server;
  server.system().program_path = options.program_folder + "\\vantoro_restore.exe";
  if (!options.temp_folder.empty()) {
    server.system().temp_directory = options.temp_folder;
    server.files().MakeDirectories(options.temp_folder);
  }
  simulator::Build(scenario, server);
  server.files().MakeDirectories(options.program_folder);
  if (options.logs_are_blocked) server.files().Write(options.program_folder + "\\Logs", "");
  server.message_boxes().Answer(
      [&options](const simulator::ShownMessageBox& box) { return Answer(box, options.restarts); });
  if (options.cancelled_in.empty()) {
    RunProgram(server, run);
  } else {
    const HeldTool tool(options.cancelled_in, server);
    RunProgram(server, run);
  }
  ReleaseLost(server);
  run.log = LogOf(
      server, options.log_folder.empty() ? options.program_folder + "\\Logs" : options.log_folder);
  for (const simulator::Disk& disk : server.disks()) {
    for (const simulator::Partition& partition : disk.partitions) {
      if (!partition.volume) continue;
      run.letters[{disk.number, partition.number}] = server.files().LetterOf(*partition.volume);
      const auto store = server.boot().unused.find(partition.volume.get());
      if (store == server.boot().unused.end()) continue;
      run.unused_boot[{disk.number, partition.number}] = store->second;
    }
  }
  run.boot = server.boot().store;
  run.has_common_link = server.files().Exists(server.system().common_startup_directory + kLinkName);
  run.has_program_link = server.files().Exists(options.program_folder + kLinkName);
  run.boxes = server.message_boxes().Shown();
  if (!server.dialogs().All().empty()) {
    run.dialog = std::make_shared<simulator::ShownDialog>(server.dialogs().All().back());
  }
  run.restart = server.shutdown().Scheduled();
  return run;
}

}  // namespace tests
