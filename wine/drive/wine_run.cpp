#include "wine/drive/wine_run.h"

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "simulator/model/common/utf8.h"
#include "wine/drive/wine_failure.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

WatchedDialog ReadDialog(const json& from) {
  return {from.at("title"), from.at("position"), from.at("maximum"),
          from.at("log"),   from.at("note"),     from.at("cancel")};
}

WatchedBox ReadBox(const json& from, const json& dialog) {
  WatchedBox box{from.at("caption"), from.at("text"), from.at("buttons"), std::nullopt};
  if (!dialog.is_null()) box.dialog = ReadDialog(dialog);
  return box;
}

// Wine's own, whatever runs in a prefix.
bool IsWines(const std::string& process) {
  static const std::set<std::string> kNames = {
      "services.exe", "winedevice.exe", "plugplay.exe", "svchost.exe",  "explorer.exe",
      "rpcss.exe",    "conhost.exe",    "start.exe",    "wineboot.exe", "tabtip.exe"};
  return kNames.count(process) != 0;
}

// What stands between the texts in each line of Wine's that has both.
std::vector<std::string> ToldBetween(const fs::path& errors, const std::string& before,
                                     const std::string& behind) {
  std::vector<std::string> found;
  std::ifstream stream(errors);
  for (std::string line; std::getline(stream, line);) {
    const size_t begin = line.find(before);
    if (begin == std::string::npos) continue;
    const size_t end = line.find(behind, begin + before.size());
    if (end == std::string::npos) continue;
    found.push_back(line.substr(begin + before.size(), end - begin - before.size()));
  }
  return found;
}

// L"text" 30 0 1: the message, in which Wine writes what is not ASCII as "\7cfb", the seconds,
// whether programs are forced to close, whether the machine starts again.
ShutdownRequest ReadShutdown(const std::string& told) {
  constexpr size_t kDigits = 4;
  constexpr int kHexadecimal = 16;
  const size_t end = told.rfind('"');
  std::u16string message;
  for (size_t i = told.find('"') + 1; i < end; ++i) {
    if (told[i] == '\\') {
      message +=
          static_cast<char16_t>(std::stoi(told.substr(i + 1, kDigits), nullptr, kHexadecimal));
      i += kDigits;
    } else {
      message += static_cast<char16_t>(told[i]);
    }
  }
  ShutdownRequest request;
  request.message = Utf8FromUtf16(message);
  std::istringstream(told.substr(end + 1)) >> request.seconds >> request.force_apps_closed >>
      request.reboot;
  return request;
}

std::vector<std::string> Arguments(const WineServer& server, const WatchOptions& options) {
  std::vector<std::string> arguments = {"C:\\watch_program.exe"};
  if (!options.restarts) arguments.insert(arguments.end(), {"--answer", "later"});
  if (options.cancels_when_held) arguments.emplace_back("--cancel-when-held");
  if (!options.cancels_at.empty()) {
    arguments.insert(arguments.end(), {"--cancel-at", options.cancels_at});
  }
  if (options.starts_link) {
    arguments.insert(arguments.end(),
                     {"--link", System().common_startup_directory + "\\vantoro_restore.exe.lnk"});
  } else {
    arguments.push_back(server.program());
  }
  return arguments;
}

void Take(const json& line, const WatchOptions& options, WatchedRun& run) {
  if (line.contains("box")) {
    run.boxes.push_back(ReadBox(line.at("box"), line.at("dialog")));
    if (options.on_box) options.on_box(run.boxes.back());
  } else if (line.contains("dialog")) {
    run.dialogs.push_back(ReadDialog(line.at("dialog")));
    if (options.on_dialog) options.on_dialog(run.dialogs.back());
  } else {
    line.at("exit_code").get_to(run.exit_code);
    line.at("major_version").get_to(run.major_version);
    line.at("minor_version").get_to(run.minor_version);
    for (const std::string process : line.at("processes")) {
      if (!IsWines(process)) run.processes.push_back(process);
    }
  }
}

// Returns the status of the program that watches.
int Watch(const HostCommand& command, const WatchOptions& options, WatchedRun& run,
          RunEvidence& evidence) {
  HostProcess watch(command);
  for (std::string line; watch.ReadLine(line);) {
    const json told = json::parse(line);
    evidence.is_watched = true;
    if (told.contains("start_error")) {
      evidence.start_error = told.at("start_error").get<DWORD>();
    } else if (!told.contains("watching")) {
      Take(told, options, run);
    }
    if (told.contains("box")) watch.WriteLine("go on");
  }
  return watch.Wait();
}

}  // namespace

WatchedRun RunWatched(WineServer& server, const WatchOptions& options) {
  WinePrefix& prefix = server.prefix();
  const auto install = [&prefix](const char* name) {
    fs::copy_file(WindowsProgram(std::string("wine/programs/") + name),
                  prefix.folder() / "drive_c" / name, fs::copy_options::overwrite_existing);
  };
  install("watch_program.exe");
  if (options.starts_link) {
    install("make_link.exe");
    fs::remove(server.CommonStartupLink());
    prefix.RunCommand({"C:\\make_link.exe",
                       System().common_startup_directory + "\\vantoro_restore.exe.lnk",
                       server.program()});
  }
  const fs::path errors = prefix.ErrorFile();
  WatchedRun run;
  RunEvidence evidence;
  const WineTrace trace(errors);
  const int status = Watch(prefix.Command(Arguments(server, options)), options, run, evidence);
  evidence.trace = trace.Text();
  evidence.log = server.Log();
  if (const auto failure = FailureOfWine(evidence)) throw WineFailure(*failure);
  if (evidence.start_error) {
    throw std::runtime_error("the program could not be started: error " +
                             std::to_string(*evidence.start_error));
  }
  if (status != 0) {
    throw std::runtime_error("the run was not watched to its end: status " +
                             std::to_string(status) + ", see " + errors.string());
  }
  for (const std::string& told : ToldBetween(errors, "InitiateSystemShutdownExW (null) ", " 0x")) {
    run.shutdowns.push_back(ReadShutdown(told));
  }
  run.bar_states = ToldBetween(errors, "fixme:progress:ProgressWindowProc state ", " not");
  return run;
}

}  // namespace simulator
