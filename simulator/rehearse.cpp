// Runs the restore program on a simulated server and shows what it did. Standard output here is
// std::cout: stdio's is the simulated console.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "simulator/model/server.h"
#include "simulator/report_boot.h"
#include "simulator/report_descriptors.h"
#include "simulator/report_junctions.h"
#include "simulator/report_letters.h"
#include "simulator/scenario.h"
#include "ui/resource.h"

namespace simulator {
namespace {

constexpr int kSuccess = 0;
constexpr int kRunFailed = 1;
constexpr int kWrongUsage = 2;

constexpr std::string_view kHelp =
    "usage: rehearse [--scenario NAME|FILE] [--logs FOLDER] | --list | --help\n"
    "\n"
    "Runs the restore program on a simulated server and reports what is as on the source: boot\n"
    "configuration, drive letters, junctions, security descriptors.\n"
    "\n"
    "  --scenario NAME  a shipped scenario, see --list; \"default\" without this option\n"
    "  --scenario FILE  a scenario file: the name ends with .json or holds a slash\n"
    "  --logs FOLDER    where the program's log is copied; ./out/Logs without this option\n"
    "  --list           the shipped scenarios and what they show\n"
    "  --help           this text\n"
    "\n"
    "Exit status: 0, 1 when the run failed, 2 for wrong usage or a broken scenario.\n";

struct Options {
  std::string scenario = "default";
  std::filesystem::path logs = "out/Logs";
  bool list = false;
  bool help = false;
};

// Empty, or what is wrong with the arguments.
std::string ParseArguments(const std::vector<std::string>& arguments, Options& options) {
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (argument == "--list") {
      options.list = true;
    } else if (argument == "--help") {
      options.help = true;
    } else if (argument == "--scenario" || argument == "--logs") {
      if (i + 1 == arguments.size() || arguments[i + 1].empty()) {
        return argument + " needs a value";
      }
      const std::string& value = arguments[++i];
      if (argument == "--scenario") {
        options.scenario = value;
      } else {
        options.logs = value;
      }
    } else {
      return "unknown argument \"" + argument + "\"";
    }
  }
  return "";
}

std::vector<std::filesystem::path> ShippedScenarios() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(VANTORO_SCENARIO_DIR)) {
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::filesystem::path ScenarioFile(const std::string& name) {
  if (name.ends_with(".json") || name.find('/') != std::string::npos) return name;
  return std::filesystem::path(VANTORO_SCENARIO_DIR) / (name + ".json");
}

void List() {
  for (const std::filesystem::path& file : ShippedScenarios()) {
    std::cout << file.stem().string() << "\n    " << ReadScenario(file).title << "\n";
  }
}

// The terminal's escape sequence for the level that a log line names; empty for the plain one.
std::string ColourOf(const std::string& line) {
  constexpr std::pair<std::string_view, std::string_view> kColours[] = {
      {"] [Fatal] ", "\x1b[91m"}, {"] [Error] ", "\x1b[91m"}, {"] [Warn] ", "\x1b[93m"},
      {"] [Done] ", "\x1b[92m"},  {"] [Debug] ", "\x1b[90m"},
  };
  for (const auto& [level, colour] : kColours) {
    if (line.find(level) != std::string::npos) return std::string(colour);
  }
  return "";
}

// Shows every line of the program's log as it is written.
void ShowLog(Files& files) {
  const bool colours = ::isatty(STDOUT_FILENO) == 1;
  files.Watch([colours](const std::string& path, std::string_view bytes) {
    if (!path.ends_with(".log")) return;
    std::string line(bytes);
    std::erase(line, '\r');
    const std::string colour = colours ? ColourOf(line) : "";
    std::cout << colour << line << (colour.empty() ? "" : "\x1b[0m") << std::flush;
  });
}

// Runs the program from its entry point to its exit. Whether the run succeeded, by what the dialog
// showed last.
bool RunProgram(Server& server) {
  server.own_process().Run(
      [] { return ::wWinMain(ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  const std::vector<ShownDialog> dialogs = server.desktop().dialogs().All();
  if (dialogs.empty()) return false;
  const ShownControl& bar = dialogs.back().Control(IDC_PROGRESS);
  return bar.state == PBST_NORMAL && bar.position == bar.maximum;
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

// The message box that told of the failure, else the run's totals.
std::string ReasonOf(Server& server) {
  const std::vector<ShownMessageBox> boxes = server.desktop().Boxes();
  if (!boxes.empty()) return boxes.back().text;
  const std::string console = server.console().Text();
  const size_t begin = console.rfind("Vantoro Restore Finish, Total");
  if (begin == std::string::npos) return "see the log";
  return console.substr(begin, console.find_first_of("\r\n", begin) - begin);
}

int Rehearse(const Options& options) {
  const Scenario scenario = ReadScenario(ScenarioFile(options.scenario));
  Server server;
  const std::vector<SourceVolume> sources = Build(scenario, server);
  const std::vector<JunctionState> junctions = JunctionStates(sources);
  const BootStore boot = server.boot().store;
  std::cout << scenario.title << "\n\n";
  ShowLog(server.files());
  const bool succeeded = RunProgram(server);
  server.files().Watch(nullptr);

  std::cout << "\n";
  for (const ShownMessageBox& box : server.desktop().Boxes()) {
    std::cout << "message box [" << box.caption << "]: " << box.text << "\n";
  }
  std::cout << BootReport(boot, server.boot().store)
            << LetterReport(GatherLetters(scenario, server))
            << JunctionReport(GatherJunctions(sources, junctions, server))
            << DescriptorReport(GatherDescriptors(sources, server.security().domains()));
  if (!CopyLogs(server, options.logs)) return kRunFailed;
  if (succeeded) return kSuccess;
  std::cout << std::flush;
  std::cerr << "rehearse: the run failed: " << ReasonOf(server) << "\n";
  return kRunFailed;
}

int Main(const std::vector<std::string>& arguments) {
  Options options;
  const std::string wrong = ParseArguments(arguments, options);
  if (!wrong.empty()) {
    std::cerr << "rehearse: " << wrong << "; --help tells the usage\n";
    return kWrongUsage;
  }
  try {
    if (options.help) {
      std::cout << kHelp;
    } else if (options.list) {
      List();
    } else {
      return Rehearse(options);
    }
  } catch (const ScenarioError& error) {
    std::cerr << "rehearse: " << error.what() << "\n";
    return kWrongUsage;
  } catch (const std::filesystem::filesystem_error& error) {
    std::cerr << "rehearse: " << error.path1().string() << ": " << error.code().message() << "\n";
    return kWrongUsage;
  }
  return kSuccess;
}

}  // namespace
}  // namespace simulator

int main(int argc, char** argv) {
  return simulator::Main(std::vector<std::string>(argv + std::min(argc, 1), argv + argc));
}
