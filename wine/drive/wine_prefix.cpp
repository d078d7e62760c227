#include "wine/drive/wine_prefix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "simulator/model/common/path_name.h"
#include "wine/drive/wine_failure.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

struct Language {
  LANGID language;
  const char* locale;  // of the host; what Wine takes its own from
  const char* source;  // what localedef makes it of; nothing for one that every host has
};

constexpr Language kLanguages[] = {{1033, "C.UTF-8", ""},
                                   {1031, "de_DE.UTF-8", "de_DE"},
                                   {1036, "fr_FR.UTF-8", "fr_FR"},
                                   {1041, "ja_JP.UTF-8", "ja_JP"},
                                   {2052, "zh_CN.UTF-8", "zh_CN"}};

const Language& LanguageOf(LANGID language) {
  const auto* const found =
      std::find_if(std::begin(kLanguages), std::end(kLanguages),
                   [&](const Language& each) { return each.language == language; });
  if (found == std::end(kLanguages)) {
    throw std::runtime_error("no locale of the host is known for the language " +
                             std::to_string(language));
  }
  return *found;
}

// One process at a time makes what the others then use.
class Lock {
 public:
  explicit Lock(const fs::path& file) : descriptor_(::open(file.c_str(), O_CREAT | O_RDWR, 0644)) {
    if (descriptor_ < 0 || ::flock(descriptor_, LOCK_EX) != 0) {
      throw std::system_error(errno, std::generic_category(), file.string());
    }
  }
  ~Lock() { ::close(descriptor_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  const int descriptor_;
};

void EndAll(const fs::path& prefix) {
  HostProcess server({.arguments = {"wineserver", "-k"},
                      .environment = {{"WINEPREFIX", prefix.string()}},
                      .folder = prefix});
  server.Wait();
}

// No drive of the host is left, and no folder that leads out. Wine's devices come back with every
// start.
void Isolate(const fs::path& prefix) {
  for (const auto& link : fs::directory_iterator(prefix / "dosdevices")) {
    if (link.path().filename() != "c:") fs::remove(link.path());
  }
  std::vector<fs::path> links;
  for (const auto& entry : fs::recursive_directory_iterator(prefix / "drive_c")) {
    if (entry.is_symlink()) links.push_back(entry.path());
  }
  for (const fs::path& link : links) {
    fs::remove(link);
    fs::create_directory(link);
  }
}

// Throws WineFailure if Wine did not bring it up, std::runtime_error if its status is not 0.
std::string RunUnderWine(const HostCommand& command) {
  const WineTrace trace(command.errors);
  try {
    return Run(command);
  } catch (const std::runtime_error&) {
    if (const auto failure = FailureInTrace(trace.Text())) throw WineFailure(*failure);
    throw;
  }
}

fs::path MakeBase(const fs::path& parent) {
  fs::path base = parent / "base";
  const fs::path done = parent / "base.done";
  fs::create_directories(parent);
  const Lock lock(parent / "making.lock");
  const std::string version =
      Run({.arguments = {"wine", "--version"}, .environment = {}, .folder = parent});
  std::string made;
  std::getline(std::ifstream(done), made);
  if (made + "\n" == version) return base;
  fs::remove(done);
  const HostCommand start{.arguments = {VANTORO_SOURCE_DIR "/wine/wine-run", "cmd", "/c", "exit"},
                          .environment = {{"WINEPREFIX", base.string()},
                                          {"WINEDEBUG", "-all,err+virtual"},
                                          {"LC_ALL", "C.UTF-8"}},
                          .folder = parent,
                          .errors = parent / "base.errors.txt"};
  const auto make = [&] {
    fs::remove_all(base);
    RunUnderWine(start);
  };
  RunAgainWhereWineFails(make, std::cout);
  Run({.arguments = {"wineserver", "-w"},
       .environment = {{"WINEPREFIX", base.string()}},
       .folder = parent});
  Isolate(base);
  std::ofstream(done) << version;
  return base;
}

void MakeLocale(const fs::path& folder, const Language& language) {
  if (*language.source == '\0') return;
  fs::create_directories(folder);
  const Lock lock(folder / (std::string(language.locale) + ".lock"));
  if (fs::exists(folder / language.locale / "LC_CTYPE")) return;
  // Warns, and ends with 1, for locales that are well known to be so.
  HostProcess definition({.arguments = {"localedef", "-c", "-i", language.source, "-f", "UTF-8",
                                        (folder / language.locale).string()},
                          .environment = {},
                          .folder = folder});
  definition.Wait();
  if (!fs::exists(folder / language.locale / "LC_CTYPE")) {
    throw std::runtime_error(std::string("localedef has not made ") + language.locale);
  }
}

// Folders are made, files linked: they are the same for all.
void LinkTree(const fs::path& from, const fs::path& to) {
  fs::copy(from, to,
           fs::copy_options::recursive | fs::copy_options::create_hard_links |
               fs::copy_options::copy_symlinks);
}

void Append(const fs::path& file, const std::string& section, const std::string& values) {
  std::ofstream(file, std::ios::app) << "\n[" << section << "] 1\n" << values << "\n";
}

}  // namespace

WinePrefix::WinePrefix(const fs::path& folder, LANGID language)
    : folder_(fs::absolute(folder)), language_(language) {
  const fs::path base = MakeBase(folder_.parent_path());
  MakeLocale(folder_.parent_path() / "locales", LanguageOf(language));
  if (fs::exists(folder_)) EndAll(folder_);
  RemovePrefix(folder_);
  LinkTree(base, folder_);
  // Those that are written in place must be files of their own.
  for (const char* const written :
       {"system.reg", "user.reg", "userdef.reg", ".update-timestamp", "drive_c/windows/win.ini"}) {
    if (!fs::exists(base / written)) continue;
    fs::remove(folder_ / written);
    fs::copy_file(base / written, folder_ / written);
  }
  DefineDrive('C', kSystemVolumeTarget, DRIVE_FIXED);
}

WinePrefix::~WinePrefix() {
  try {
    EndAll(folder_);
  } catch (const std::exception&) {
    // Then it ends by itself, soon after the last program of it.
  }
}

fs::path WinePrefix::VolumeFolder(const std::string& name) const {
  return folder_ / "volumes" / name;
}

std::string WinePrefix::VolumeTarget(const std::string& name) { return "../volumes/" + name; }

fs::path WinePrefix::OnSystemVolume(std::string_view path) const {
  return Below(folder_ / "drive_c", path);
}

fs::path WinePrefix::Below(fs::path folder, std::string_view path) {
  for (const std::string& name : NamesBelowRoot(path)) {
    fs::path next = folder / name;
    if (!fs::exists(next) && fs::is_directory(folder)) {
      for (const auto& entry : fs::directory_iterator(folder)) {
        if (NameKey(entry.path().filename().string()) == NameKey(name)) next = entry.path();
      }
    }
    folder = std::move(next);
  }
  return folder;
}

void WinePrefix::DefineDrive(char letter, const std::string& target, UINT type) {
  const std::string name = NameKey(std::string(1, letter)) + ":";
  const fs::path drive = folder_ / "dosdevices" / name;
  if (!fs::is_symlink(drive)) fs::create_symlink(target, drive);
  // Else it would be of the type of the host's file system.
  const char* type_name = "hd";
  if (type == DRIVE_REMOVABLE) type_name = "floppy";
  if (type == DRIVE_CDROM) type_name = "cdrom";
  AddToMachineRegistry("Software\\\\Wine\\\\Drives", "\"" + name + "\"=\"" + type_name + "\"");
}

std::vector<std::pair<char, std::string>> WinePrefix::Drives() const {
  std::vector<std::pair<char, std::string>> drives;
  for (const auto& link : fs::directory_iterator(folder_ / "dosdevices")) {
    const std::string name = link.path().filename().string();
    if (name.size() != 2 || name[1] != ':') continue;
    drives.emplace_back(static_cast<char>(name[0] - 'a' + 'A'), fs::read_symlink(link.path()));
  }
  std::sort(drives.begin(), drives.end());
  return drives;
}

bool WinePrefix::Exists(std::string_view path) const {
  constexpr size_t kRoot = 3;  // "C:\"
  for (const auto& [letter, target] : Drives()) {
    if (NameKey(path.substr(0, 1)) != NameKey(std::string(1, letter))) continue;
    return fs::exists(Below(folder_ / "dosdevices" / target, path.substr(kRoot)));
  }
  return false;
}

void WinePrefix::AddFonts() {
  std::error_code none;
  for (const auto& font : fs::directory_iterator("/usr/share/wine/fonts", none)) {
    fs::copy_file(font.path(), OnSystemVolume("windows\\Fonts") / font.path().filename(),
                  fs::copy_options::skip_existing);
  }
  // The usual Chinese one is not the host's to give.
  AddToUserRegistry("Software\\\\Wine\\\\Fonts\\\\Replacements",
                    "\"SimSun\"=\"WenQuanYi Micro Hei\"");
}

void WinePrefix::AddToUserRegistry(const std::string& section, const std::string& values) {
  Append(folder_ / "user.reg", section, values);
}

void WinePrefix::AddToMachineRegistry(const std::string& section, const std::string& values) {
  Append(folder_ / "system.reg", section, values);
}

HostCommand WinePrefix::Command(std::vector<std::string> arguments) const {
  arguments.insert(arguments.begin(), VANTORO_SOURCE_DIR "/wine/wine-run");
  return {.arguments = std::move(arguments),
          .environment = {{"WINEPREFIX", folder_.string()},
                          // Calls that Wine only pretends to do, and starts of its own that fail.
                          {"WINEDEBUG", "-all,fixme+advapi,fixme+progress,err+virtual"},
                          // Links of Windows are not shown on the host's desktop.
                          {"WINEDLLOVERRIDES", "winemenubuilder.exe="},
                          {"LOCPATH", (folder_.parent_path() / "locales").string()},
                          {"LC_ALL", LanguageOf(language_).locale}},
          .folder = folder_ / "drive_c",
          .errors = ErrorFile()};
}

fs::path WinePrefix::ErrorFile() const { return folder_ / "errors.txt"; }

std::string WinePrefix::RunCommand(std::vector<std::string> arguments) const {
  return RunUnderWine(Command(std::move(arguments)));
}

void RemovePrefix(const fs::path& folder) {
  std::error_code none;
  fs::remove_all(folder, none);
  fs::remove(folder.string() + ".lock", none);
}

}  // namespace simulator
