#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
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

// The volume of a drive such as "c:"; null if there is none.
std::shared_ptr<Volume> VolumeOf(const std::string& drive, const Machine& machine) {
  return drive.size() == 2 && drive[1] == ':' ? machine.VolumeAt(drive[0]) : nullptr;
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

BootEntry LoaderToKeep(const BootStore& store, const std::string& current,
                       const InstalledWindows& windows) {
  if (store.Find(current) == nullptr) return NewLoader(store, windows);
  BootEntry loader = Alone(store, current);
  loader.Set("locale", {windows.locale});
  return loader;
}

ToolResult Failure() { return {"Failure when attempting to copy boot files.\r\n", 1}; }

// What the boot manager says besides stays.
BootEntry RebuiltManager(const BootStore& store, char drive, const BootEntry& loader, bool uefi) {
  const BootManagerFacts facts{std::string("partition=") + drive + ":",
                               loader.Value("locale"),
                               loader.identifier,
                               loader.Value("resumeobject"),
                               {loader.identifier},
                               uefi};
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
  const std::shared_ptr<Volume> volume = VolumeOf(options->drive, machine);
  const std::optional<std::string> folder = WindowsFolder(options->source, machine);
  if (!volume || !folder) return Failure();

  const std::optional<SystemPartition> system = FindSystemPartition(machine.disks());
  const bool uefi = system && system->uefi;
  const bool is_in_use = volume == (system ? system->partition.volume : WindowsVolume(machine));
  Boot& boot = machine.boot();
  BootStore& store = is_in_use ? boot.store : boot.unused[volume.get()];
  BootEntry loader =
      LoaderToKeep(store, boot.current, {*folder, "Windows Server", options->locale, uefi});
  BootEntry manager = RebuiltManager(store, UpperLetter(options->drive[0]), loader, uefi);
  store.entries = {std::move(manager), std::move(loader)};
  return {"Boot files successfully created.\r\n", 0};
}

}  // namespace simulator
