// A migrated server as a Wine prefix: what a scenario describes, on drives of Wine, with the tools
// of the system as programs.
//
// Wine keeps of descriptors what fits into the mode of a file, and no junctions: those of the copy
// are left out. A list that the administrator may not read is a folder here, since Wine refuses the
// host's root nothing: neither can be opened.
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
  std::vector<ToolAnswer> answers;  // besides the scenario's
};

class WineServer {
 public:
  // In a folder that is made anew. Throws std::exception, ScenarioError as Build does.
  WineServer(const Scenario& scenario, const WineServerOptions& options,
             const std::filesystem::path& folder);

  WinePrefix& prefix() { return prefix_; }
  const WinePrefix& prefix() const { return prefix_; }
  // As Windows and as the host name it.
  std::string program() const { return options_.program_folder + "\\vantoro_restore.exe"; }
  std::filesystem::path ProgramFolder() const;
  std::filesystem::path CommonStartupLink() const;
  std::filesystem::path ProgramLink() const;

  // What the tools have left.
  MachineState State() const;
  // The drive of Wine that is the volume of that partition; nothing when none is.
  std::optional<char> LetterOf(int disk, int partition) const;
  std::vector<std::filesystem::path> LogFiles() const;
  // The text of the log, as the program wrote it; empty when there is none.
  std::string Log() const;

 private:
  const WineServerOptions options_;
  WinePrefix prefix_;
};

// The programs that the Windows build makes. Throws std::runtime_error when one is missing.
std::filesystem::path WindowsProgram(const std::string& name);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_SERVER_H_
