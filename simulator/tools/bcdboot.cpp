#include <cstdint>
#include <optional>
#include <utility>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/path_name.h"
#include "simulator/tools/machine.h"
#include "simulator/tools/tools.h"

namespace simulator {
namespace {

struct Options {
  std::string source;
  std::string drive;
  std::string locale;
};

std::optional<Options> ReadOptions(const std::vector<std::string>& arguments) {
  if (arguments.size() != 5) return std::nullopt;
  Options options;
  options.source = arguments[0];
  for (size_t i = 1; i < arguments.size(); i += 2) {
    const std::string option = NameKey(arguments[i]);
    if (option == "/s") options.drive = arguments[i + 1];
    if (option == "/l") options.locale = arguments[i + 1];
  }
  if (options.drive.empty() || options.locale.empty()) return std::nullopt;
  return options;
}

char UpperLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// "C:"; nothing when no volume has the letter.
std::optional<std::string> MountedDrive(const std::string& drive, const Machine& machine) {
  if (drive.size() != 2 || drive[1] != ':' || !machine.IsTaken(drive[0])) return std::nullopt;
  return std::string{UpperLetter(drive[0]), ':'};
}

// "C:\Windows"; nothing when it is no folder of a drive.
std::optional<std::string> WindowsFolder(const std::string& source, const Machine& machine) {
  if (!machine.IsFolder(source)) return std::nullopt;
  std::string folder = machine.FullPath(source);
  if (folder.size() < 3 || folder[1] != ':') return std::nullopt;
  folder[0] = UpperLetter(folder[0]);
  return folder;
}

// A loader and, numbered next to it, what it resumes by.
BootEntry NewLoader(const BootStore& store, const InstalledWindows& windows) {
  uint32_t number = 1;
  while (store.Find(NumberedIdentifier(number)) != nullptr) number += 2;
  return WindowsLoader(windows, NumberedIdentifier(number), NumberedIdentifier(number + 1));
}

// The entry without references to any other in the store.
BootEntry Alone(BootStore store, const std::string& identifier) {
  const std::vector<BootEntry> entries = store.entries;
  for (const BootEntry& entry : entries) {
    if (entry.identifier != identifier) store.Remove(entry.identifier);
  }
  return store.entries.front();
}

BootEntry LoaderToKeep(const Boot& boot, const InstalledWindows& windows) {
  if (boot.store.Find(boot.current) == nullptr) return NewLoader(boot.store, windows);
  BootEntry loader = Alone(boot.store, boot.current);
  loader.Set("locale", {windows.locale});
  return loader;
}

ToolResult Failure() { return {"Failure when attempting to copy boot files.\r\n", 1}; }

// What the boot manager says besides stays.
BootEntry RebuiltManager(const BootStore& store, const std::string& drive,
                         const BootEntry& loader) {
  const BootManagerFacts facts{"partition=" + drive,
                               loader.Value("locale"),
                               loader.identifier,
                               loader.Value("resumeobject"),
                               {loader.identifier}};
  const BootEntry* const present = store.Find(kBootManager);
  if (present == nullptr) return WindowsManager(facts);
  BootEntry manager = *present;
  manager.Set("device", {facts.device});
  manager.Set("locale", {facts.locale});
  manager.Set("default", {facts.default_loader});
  manager.Set("displayorder", facts.displayed);
  return manager;
}

}  // namespace

ToolResult RunBcdboot(const std::vector<std::string>& arguments, Machine& machine) {
  const std::optional<Options> options = ReadOptions(arguments);
  if (!options) return Failure();
  const std::optional<std::string> drive = MountedDrive(options->drive, machine);
  const std::optional<std::string> folder = WindowsFolder(options->source, machine);
  if (!drive || !folder) return Failure();

  Boot& boot = machine.boot();
  BootEntry loader = LoaderToKeep(boot, {*folder, "Windows Server", options->locale});
  BootEntry manager = RebuiltManager(boot.store, *drive, loader);
  boot.store.entries = {std::move(manager), std::move(loader)};
  return {"Boot files successfully created.\r\n", 0};
}

}  // namespace simulator
