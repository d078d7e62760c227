// Wine prefixes, the machines on which the Windows build of the program runs. One prefix is created
// by Wine; the others are copies of it.
#ifndef WINE_DRIVE_WINE_PREFIX_H_
#define WINE_DRIVE_WINE_PREFIX_H_

#include <windows.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "wine/drive/host_process.h"

namespace simulator {

class WinePrefix {
 public:
  // Creates a machine with only drive C in `folder`, which is cleared first. The first call for a
  // parent folder also creates the prefix to copy there. Throws std::exception on failure.
  WinePrefix(const std::filesystem::path& folder, LANGID language);
  // Terminates all processes that still run in the prefix.
  ~WinePrefix();
  WinePrefix(const WinePrefix&) = delete;
  WinePrefix& operator=(const WinePrefix&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  // Return the host folder of a volume other than the system volume, and the target of a drive for
  // that volume. The target is a path relative to the folder in which Wine keeps its drives.
  std::filesystem::path VolumeFolder(const std::string& name) const;
  static std::string VolumeTarget(const std::string& name);
  static constexpr char kSystemVolumeTarget[] = "../drive_c";

  // Returns the host path of a path after C's root, such as "Windows\System32". Existing names
  // match in any case; names that do not exist are used as given.
  std::filesystem::path OnSystemVolume(std::string_view path) const;
  static std::filesystem::path Below(std::filesystem::path folder, std::string_view path);

  // Defines a drive. Letters are upper case, `target` is a VolumeTarget, and `type` is fixed,
  // removable or CD. If the drive exists, only its type is set.
  void DefineDrive(char letter, const std::string& target, UINT type);
  // Returns the letter and target of each drive.
  std::vector<std::pair<char, std::string>> Drives() const;

  // Returns true if a file or folder exists at a Windows path such as "D:\Data"; otherwise returns
  // false.
  bool Exists(std::string_view path) const;

  // Adds the fonts of Wine and the fonts of the host that its dialogs are designed for. Call before
  // a program runs.
  void AddFonts();

  // Add values to a section of the user's registry or of the machine's. Call before a program runs.
  void AddToUserRegistry(const std::string& section, const std::string& values);
  void AddToMachineRegistry(const std::string& section, const std::string& values);

  // Returns the command for a Windows program, given by its Windows path. Wine's own error messages
  // are enabled.
  HostCommand Command(std::vector<std::string> arguments) const;
  // Returns the file of Wine's error messages.
  std::filesystem::path ErrorFile() const;
  // Runs a Windows program, waits for its end and returns its output. Throws WineFailure if Wine
  // did not start it, or std::runtime_error if its status is not 0.
  std::string RunCommand(std::vector<std::string> arguments) const;

 private:
  const std::filesystem::path folder_;
  const LANGID language_;
};

// Removes the folder of a prefix that is no longer used, as far as possible.
void RemovePrefix(const std::filesystem::path& folder);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_PREFIX_H_
