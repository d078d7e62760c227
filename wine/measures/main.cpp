// wine_measures FOLDER: the program of Windows in Wine prefixes, which are made in FOLDER,
// against bare programs there. Adds rows to the table of ./bench; ends with status 1 when a bound
// is passed.
#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "benchmarks/table.h"
#include "rehearsal/description/prepare_folder.h"
#include "wine/drive/wine_server.h"
#include "wine/measures/tool_calls.h"

namespace benchmarks {
namespace {

namespace fs = std::filesystem;
using simulator::WineServer;
using simulator::WineServerOptions;

// Where prefixes are made.
fs::path folder;

constexpr int kStarts = 61;
constexpr int kRuns = 3;
constexpr int kListRounds = 20;
constexpr int kLines = 2'500;
constexpr int kPeerRounds = 21;

// By the name that the program `measure` gives them, in nanoseconds.
using Times = std::map<std::string, std::vector<double>>;

simulator::Scenario Default() {
  return simulator::ReadScenario(fs::path(VANTORO_SCENARIO_DIR) / "default.json");
}

// A server in a prefix that goes with it.
class Prefix {
 public:
  explicit Prefix(const WineServerOptions& options)
      : server_(std::make_unique<WineServer>(Default(), options, folder / "bench")) {
    for (const char* const name : {"measure.exe", "empty_dialog.exe"}) {
      fs::copy_file(simulator::WindowsProgram(std::string("wine/measures/programs/") + name),
                    Drive() / name);
    }
  }

  fs::path Drive() const { return server_->prefix().folder() / "drive_c"; }
  std::string Program() const { return server_->program(); }

  void Measure(std::vector<std::string> arguments, Times& times) {
    constexpr double kNanoseconds = 1000;
    arguments.insert(arguments.begin(), "C:\\measure.exe");
    std::istringstream told(simulator::Run(server_->prefix().Command(arguments)));
    std::string name;
    for (double microseconds = 0; told >> name >> microseconds;) {
      times[name].push_back(microseconds * kNanoseconds);
    }
  }

 private:
  std::unique_ptr<WineServer> server_;
};

// The run waits for its first tool meanwhile.
bool CompareStarts() {
  WineServerOptions options;
  for (int call = 1; call <= kStarts + 1; ++call) {
    options.answers.push_back({"bcdedit", call, 0, "", true});
  }
  Prefix prefix(options);
  Times times;
  prefix.Measure({"start", std::to_string(kStarts), prefix.Program(), "C:\\empty_dialog.exe"},
                 times);
  return PrintRatio("start to painted dialog, Wine / an empty one", Median(times["program"]),
                    Median(times["reference"]), 1.4);
}

// The scripts as files of their own, so that they need not be written between the calls.
void WriteToolCalls(const fs::path& drive) {
  fs::create_directories(drive / "bench");
  std::ofstream command_lines(drive / "bench" / "tools.txt");
  int number = 0;
  for (const ToolCall& call : ToolCallsOf(Default())) {
    if (call.script.empty()) {
      command_lines << call.command_line << "\n";
      continue;
    }
    const std::string name = "script." + std::to_string(++number);
    std::ofstream(drive / "bench" / name, std::ios::binary) << call.script;
    command_lines << "diskpart /s C:\\bench\\" << name << "\n";
  }
}

std::string ListOf(char letter) {
  return std::string(1, letter) + ":\\" + simulator::kPrepareFolder + "\\" +
         simulator::AclListName(letter);
}

// The tools leave the letters as the run does, by which the lists are found.
bool CompareRuns() {
  Times times;
  for (int run = 0; run < kRuns; ++run) {
    {
      Prefix prefix({});
      prefix.Measure({"run", prefix.Program()}, times);
    }
    Prefix prefix({});
    WriteToolCalls(prefix.Drive());
    std::vector<std::string> arguments = {"tools", "C:\\bench\\tools.txt"};
    for (const char letter : {'C', 'D', 'E', 'F', 'G'}) arguments.push_back(ListOf(letter));
    prefix.Measure(arguments, times);
  }
  const double program = Median(times["program"]);
  const double tools = Median(times["tools"]);
  const double descriptors = Median(times["descriptors"]);
  const bool is_within = PrintRatio("a whole run, Wine / its tools alone", program, tools, 0);
  return PrintRatio("a whole run, Wine / tools, bare descriptor calls", program,
                    tools + descriptors, 1.15) &&
         is_within;
}

void WriteList(const fs::path& drive) {
  constexpr const char* kDescriptors[] = {
      "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)",
      "O:SYG:SYD:PAI(D;;FW;;;BG)(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;AU)",
      "O:BAG:BUD:PAI(A;;FA;;;SY)(A;;0x1301bf;;;BU)", "O:BAG:BAD:PAI(A;;FA;;;BA)"};
  fs::create_directories(drive / "bench");
  std::ofstream list(drive / "bench" / "list.dat");
  for (int i = 0; i < kLines; ++i) {
    const std::string name = "report_" + std::to_string(i) + ".docx";
    std::ofstream(drive / "bench" / name).flush();
    list << "\"C:\\bench\\" << name << "\",32,\"" << kDescriptors[i % std::size(kDescriptors)]
         << "\"\r\n";
  }
}

// Entries of the host's own access lists on the same files: the peer's time.
double TimeOfSetfacl(const fs::path& folder_of_files) {
  std::ofstream list(folder_of_files / "setfacl.txt");
  for (int i = 0; i < kLines; ++i) {
    list << "# file: report_" << i << ".docx\n"
         << "user::rw-\nuser:nobody:r--\ngroup::r--\nmask::r--\nother::r--\n\n";
  }
  list.close();
  std::vector<double> times;
  for (int round = 0; round < kPeerRounds; ++round) {
    const auto begin = std::chrono::steady_clock::now();
    simulator::Run({.arguments = {"setfacl", "--restore=setfacl.txt"},
                    .environment = {},
                    .folder = folder_of_files});
    const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - begin;
    times.push_back(time.count());
  }
  return Median(times);
}

bool CompareLists() {
  Prefix prefix({});
  WriteList(prefix.Drive());
  Times times;
  prefix.Measure({"lists", std::to_string(kListRounds), "C:\\bench\\list.dat"}, times);
  const double program = Median(times["program"]);
  const bool is_within =
      PrintRatio("2,500 ACL lines, Wine / bare calls", program, Median(times["reference"]), 1.05);
  return PrintRatio("2,500 ACL lines, Wine / setfacl --restore", program,
                    TimeOfSetfacl(prefix.Drive() / "bench"), 0) &&
         is_within;
}

}  // namespace
}  // namespace benchmarks

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  benchmarks::folder = argv[1];
  try {
    bool is_within = benchmarks::CompareStarts();
    is_within = benchmarks::CompareRuns() && is_within;
    return benchmarks::CompareLists() && is_within ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 2;
  }
}
