// Runs the restore program on a simulated server and shows what it did. Standard output here is
// std::cout: stdio's is the simulated console.
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "rehearsal/command.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/description/tool_history.h"
#include "rehearsal/options.h"
#include "rehearsal/report/report.h"
#include "rehearsal/screen.h"
#include "rehearsal/user.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "ui/resource.h"

namespace simulator {
namespace {

// A terminal that is large enough to draw in; its size may be unknown.
Screen::Kind KindOfScreen() {
  constexpr int kRows = 12;
  constexpr int kColumns = 80;
  const char* const terminal = std::getenv("TERM");
  if (::isatty(STDOUT_FILENO) != 1 || terminal == nullptr || std::string_view(terminal) == "dumb") {
    return Screen::Kind::kPlain;
  }
  winsize size{};
  if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_row != 0 &&
      (size.ws_row < kRows || size.ws_col < kColumns)) {
    return Screen::Kind::kPlain;
  }
  return Screen::Kind::kTerminal;
}

// Shows everything as it happens and lets the user act.
void Watch(Server& server, Screen& screen, User& user) {
  Dialogs& dialogs = server.dialogs();
  // Otherwise the run would be far ahead of what the user sees.
  dialogs.HandlePostsAtOnce();
  dialogs.Watch([&dialogs, &screen, &user](const ShownDialog& dialog) {
    screen.ShowDialog(dialog);
    if (user.WantsToCancel(dialog)) dialogs.Click(dialog.window, IDCANCEL);
  });
  server.message_boxes().Answer([&screen, &user](const ShownMessageBox& box) {
    const int answer = user.Answer(box);
    screen.ShowBox(box, answer);
    return answer;
  });
  server.files().Watch([&screen](const std::string& path, std::string_view bytes) {
    if (path.ends_with(".log")) screen.ShowLog(bytes);
  });
}

// The time that a tool takes passes on the steered clock, in steps that the dialog keeps up with.
// Who looks at a terminal sees it pass, twenty times as fast.
void PassTime(Server& server, Screen::Kind screen, const std::string& tool,
              const ChildProcess& child) {
  constexpr int kStep = 100;  // milliseconds
  constexpr std::chrono::milliseconds kSeen{kStep / 20};
  const int duration = tool == "bcdedit" ? 500 : 1000;
  const auto let_dialogs_rest = [&server] {
    Dialogs& dialogs = server.dialogs();
    for (const ShownDialog& dialog : dialogs.All()) dialogs.WaitUntilIdle(dialog.window);
  };
  let_dialogs_rest();
  for (int passed = 0; passed < duration && !child.Terminated(); passed += kStep) {
    server.clock().Advance(kStep);
    let_dialogs_rest();
    if (screen == Screen::Kind::kTerminal) std::this_thread::sleep_for(kSeen);
  }
}

// Runs the program from its entry point to its exit. What became of the run is told by what the
// user did, by the boxes, and by how the dialog looked last.
RunOutcome RunProgram(Server& server, const User& user) {
  server.own_process().Run(
      [] { return ::wWinMain(ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  if (user.cancelled_at()) return RunOutcome::kCancelled;
  const std::vector<ShownMessageBox> boxes = server.message_boxes().Shown();
  const bool has_warned = std::any_of(boxes.begin(), boxes.end(), [](const ShownMessageBox& box) {
    return (box.type & MB_ICONWARNING) == MB_ICONWARNING;
  });
  const std::vector<ShownDialog> dialogs = server.dialogs().All();
  if (has_warned || dialogs.empty()) return RunOutcome::kFailed;
  const ShownControl& bar = dialogs.back().Control(IDC_PROGRESS);
  const bool is_full = bar.state == PBST_NORMAL && bar.position == bar.maximum;
  return is_full ? RunOutcome::kSucceeded : RunOutcome::kFailed;
}

// Copies the program's logs to the host and says where they lie. False when that failed.
bool CopyLogs(Server& server, const std::filesystem::path& folder) {
  const std::string& program = server.system().program_path;
  const std::string logs = program.substr(0, program.rfind('\\')) + "\\Logs\\";
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  bool any = false;
  for (const std::string& name : server.files().List(logs)) {
    const std::optional<std::string> text = server.files().Read(logs + name);
    if (!text) continue;
    const std::filesystem::path file = folder / name;
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << *text;
    if (!stream.flush()) {
      std::cerr << "rehearse: cannot write the log to " << file.string() << "\n";
      return false;
    }
    std::cout << "log: " << file.string() << "\n";
    any = true;
  }
  if (!any) std::cout << "log: none was written\n";
  return true;
}

// The run's totals when it came so far, else the first message box.
std::string ReasonOf(Server& server) {
  const std::string console = Utf8FromAnsi(server.console().Text(), server.system().ansi_code_page);
  const size_t begin = console.rfind("Vantoro Restore Finish, Total");
  if (begin != std::string::npos) {
    return console.substr(begin, console.find_first_of("\r\n", begin) - begin);
  }
  const std::vector<ShownMessageBox> boxes = server.message_boxes().Shown();
  return boxes.empty() ? "see the log" : boxes.front().text;
}

RunEnd EndOf(RunOutcome outcome, Server& server, const User& user) {
  switch (outcome) {
    case RunOutcome::kSucceeded:
      return {outcome, ""};
    case RunOutcome::kFailed:
      return {outcome, ReasonOf(server)};
    case RunOutcome::kCancelled:
      break;
  }
  return {outcome, "at " + std::to_string(*user.cancelled_at()) + "%"};
}

int Rehearse(const Scenario& scenario, const Options& options) {
  if (options.windows) {
    std::cerr << "rehearse: --windows is for ./run, which starts rehearse_under_wine then\n";
    return kWrongUsage;
  }
  Server server;
  server.calls().KeepTrace(false);
  const Screen::Kind kind = KindOfScreen();
  const auto history = std::make_shared<ToolHistory>();
  const std::vector<SourceVolume> sources = Build(
      scenario, server,
      [&server, kind](const std::string& tool, const ChildProcess& child) {
        PassTime(server, kind, tool, child);
      },
      history);
  const ReportStart start(scenario, sources, server);
  std::cout << scenario.title << "\n\n";
  const UINT code_page = server.system().ansi_code_page;
  Screen screen(std::cout, kind, code_page);
  User user(options.intention);
  Watch(server, screen, user);
  RunEnd end = EndOf(RunProgram(server, user), server, user);
  end.wants_restart = options.intention.wish == Wish::kRestart;
  server.files().Watch(nullptr);
  server.dialogs().Watch(nullptr);

  const Report report = start.Finish(end, history->Calls(), server);
  std::cout << "\n" << ReportText(report);
  const bool is_written = CopyLogs(server, options.logs) && WriteJson(report, options.json);
  if (end.outcome != RunOutcome::kCancelled) ExpectReached(scenario, server);
  if (!is_written) return kRunFailed;
  return ExitStatus(report, options.strict);
}

}  // namespace
}  // namespace simulator

int main(int argc, char** argv) { return simulator::RunCommand(argc, argv, simulator::Rehearse); }
