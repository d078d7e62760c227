// A migrated server as a Wine prefix: the server that a scenario describes, on drives of Wine, with
// the system's tools as programs.
//
// Wine retains only the part of a descriptor that fits into the mode of a file, and it does not
// support junctions, so that junctions of the copy are left out. A backup file that the
// administrator may not read is replaced by a folder, which cannot be opened either, because Wine
// running as the host's root is never denied access.
#ifndef WINE_DRIVE_WINE_SERVER_H_
#define WINE_DRIVE_WINE_SERVER_H_

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "wine/drive/wine_prefix.h"
#include "wine/machine_state.h"

namespace simulator {

struct Scenario;

struct WineServerOptions {
  std::string program_folder = "C:\\vantoro_restore";
  std::string log_folder = {};      // if not empty, where the log is in place of "Logs" below it
  std::string temp_folder = {};     // if not empty, in place of the usual one
  std::vector<ToolAnswer> answers;  // in addition to the scenario's
};

class WineServer {
 public:
  // Creates the server in `folder`, which is cleared first. Throws std::exception, including
  // ScenarioError as Build does.
  WineServer(const Scenario& scenario, const WineServerOptions& options,
             const std::filesystem::path& folder);

  WinePrefix& prefix() { return prefix_; }
  const WinePrefix& prefix() const { return prefix_; }
  // Return paths of Windows and of the host.
  std::string program() const { return options_.program_folder + "\\vantoro_restore.exe"; }
  std::filesystem::path ProgramFolder() const;
  std::filesystem::path CommonStartupLink() const;
  std::filesystem::path ProgramLink() const;

  // Returns the state that the tools have left.
  MachineState State() const;
  // Returns the letter of the drive for the volume of that partition, or nothing if there is none.
  std::optional<char> LetterOf(int disk, int partition) const;
  std::vector<std::filesystem::path> LogFiles() const;
  // Returns the text of the log as the program wrote it, or an empty string if there is no log.
  std::string Log() const;

 private:
  const WineServerOptions options_;
  WinePrefix prefix_;
};

// Returns the path of a program of the Windows build. Throws std::runtime_error if it is missing.
std::filesystem::path WindowsProgram(const std::string& name);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_SERVER_H_
