// Wine prefixes: machines on which the program of Windows runs. One is made as a whole, the others
// are its copies.
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
  // A fresh machine with drive C alone, in a folder that is made anew. What is copied from is made
  // at the first call below `folder`'s parent. Throws std::exception when any of it fails.
  WinePrefix(const std::filesystem::path& folder, LANGID language);
  // Ends all that still runs there.
  ~WinePrefix();
  WinePrefix(const WinePrefix&) = delete;
  WinePrefix& operator=(const WinePrefix&) = delete;

  const std::filesystem::path& folder() const { return folder_; }
  // The host folder of a volume that is not the system's own, and what a drive that is this volume
  // leads to: a path that starts where Wine keeps its drives.
  std::filesystem::path VolumeFolder(const std::string& name) const;
  static std::string VolumeTarget(const std::string& name);
  static constexpr char kSystemVolumeTarget[] = "../drive_c";

  // The file or folder of the host at a path behind C's root, "Windows\System32", names in any
  // case; names that are not there yet are taken as they stand.
  std::filesystem::path OnSystemVolume(std::string_view path) const;
  static std::filesystem::path Below(std::filesystem::path folder, std::string_view path);

  // Letters are upper case. `target` is a VolumeTarget; of a drive that is there already only the
  // type is set. Types are fixed and removable.
  void DefineDrive(char letter, const std::string& target, UINT type);
  // The target of each drive that there is.
  std::vector<std::pair<char, std::string>> Drives() const;

  // Whether there is a file or folder at a path of Windows, "D:\Data".
  bool Exists(std::string_view path) const;

  // Before anything runs: the fonts of Wine and of the host that its dialogs are meant for.
  void AddFonts();

  // Before anything runs: text of a section of the user's registry, and of the machine's.
  void AddToUserRegistry(const std::string& section, const std::string& values);
  void AddToMachineRegistry(const std::string& section, const std::string& values);

  // A program of Windows, by its path there, with the errors that Wine tells of itself.
  HostCommand Command(std::vector<std::string> arguments) const;
  // Where those errors go.
  std::filesystem::path ErrorFile() const;
  // Runs one to its end and returns what it printed. Throws WineFailure if Wine did not bring it
  // up, std::runtime_error if its status is not 0.
  std::string RunCommand(std::vector<std::string> arguments) const;

 private:
  const std::filesystem::path folder_;
  const LANGID language_;
};

// Takes away the folder of a prefix that nobody uses any more, as far as it can be.
void RemovePrefix(const std::filesystem::path& folder);

// From UTF-8 to the code page of a Windows of that language, and back; what the other lacks becomes
// '?'.
std::string InCodePage(std::string_view text, LANGID language);
std::string FromCodePage(std::string_view text, LANGID language);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_PREFIX_H_
