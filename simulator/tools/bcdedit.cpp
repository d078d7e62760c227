#include "simulator/tools/bcdedit.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/common/system_messages.h"
#include "simulator/model/server.h"
#include "simulator/tools/bcdedit_output.h"
#include "simulator/tools/boot_store_file.h"
#include "simulator/tools/machine.h"

namespace simulator {
namespace {

constexpr std::string_view kExportFailed = "The store export operation has failed.";
constexpr std::string_view kImportFailed = "The store import operation has failed.";
constexpr std::string_view kDeleteFailed =
    "An error occurred while attempting to delete the specified entry.";

ToolResult Done() { return {"The operation completed successfully.\r\n", 0}; }

ToolResult Fail(std::string_view what, std::string_view reason) {
  return {"", 1, std::string(what) + "\r\n" + std::string(reason) + "\r\n"};
}

ToolResult Fail(std::string_view what, DWORD error) {
  return Fail(what, SystemMessage(error).value_or("Unknown error."));
}

ToolResult Misuse(const std::string& what) {
  return Fail(what + "\r\nRun \"bcdedit /?\" for command line assistance.",
              ERROR_INVALID_PARAMETER);
}

ToolResult Export(const std::string& path, Machine& machine) {
  const DWORD error = machine.WriteTo(path, BootStoreFile(machine.boot().store));
  return error == ERROR_SUCCESS ? Done() : Fail(kExportFailed, error);
}

ToolResult Import(const std::string& path, Machine& machine) {
  std::string bytes;
  const DWORD error = machine.ReadFrom(path, &bytes);
  if (error != ERROR_SUCCESS) return Fail(kImportFailed, error);
  std::optional<BootStore> store = ParseBootStoreFile(bytes);
  // The text for ERROR_BADDB.
  if (!store) return Fail(kImportFailed, "The configuration registry database is corrupt.");
  machine.boot().store = *std::move(store);
  return Done();
}

bool IsWellKnown(std::string_view name) {
  constexpr std::string_view kNames[] = {
      "{badmemory}",      "{bootloadersettings}", kBootManager,
      "{dbgsettings}",    "{emssettings}",        "{fwbootmgr}",
      "{globalsettings}", "{hypervisorsettings}", "{memdiag}",
      "{ntldr}",          "{ramdiskoptions}",     "{resumeloadersettings}",
  };
  return std::find(std::begin(kNames), std::end(kNames), name) != std::end(kNames);
}

bool IsGuid(std::string_view text) {
  constexpr std::string_view kForm = "{00000000-0000-0000-0000-000000000000}";
  return std::equal(text.begin(), text.end(), kForm.begin(), kForm.end(), [](char c, char form) {
    if (form != '0') return c == form;
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f');
  });
}

// The identifier as the store has it; empty for a name that stands for no entry at present.
// Nothing for what cannot be an identifier.
std::optional<std::string> ReadIdentifier(std::string_view text, const Boot& boot) {
  std::string identifier = NameKey(text);
  if (identifier == "{current}") return boot.current;
  if (identifier == "{default}") {
    const BootEntry* const manager = boot.store.Find(kBootManager);
    return manager == nullptr ? "" : manager->Value("default");
  }
  if (!IsWellKnown(identifier) && !IsGuid(identifier)) return std::nullopt;
  return identifier;
}

ToolResult Delete(const std::string& text, Boot& boot) {
  const std::optional<std::string> identifier = ReadIdentifier(text, boot);
  if (!identifier) return Misuse("The delete command specified is not valid.");
  if (boot.store.Find(*identifier) == nullptr) return Fail(kDeleteFailed, ERROR_FILE_NOT_FOUND);
  if (IsWellKnown(*identifier)) return Fail(kDeleteFailed, ERROR_ACCESS_DENIED);
  boot.store.Remove(*identifier);
  return Done();
}

}  // namespace

ToolResult RunBcdedit(const std::vector<std::string>& arguments, Machine& machine) {
  if (arguments.empty()) return {BootListing(machine.boot(), machine.system().language), 0};
  const std::string command = NameKey(arguments[0]);
  if (command != "/export" && command != "/import" && command != "/delete") {
    return Misuse("Invalid command line switch: " + arguments[0]);
  }
  if (arguments.size() != 2) {
    return Misuse("The " + command.substr(1) + " command specified is not valid.");
  }
  if (command == "/export") return Export(arguments[1], machine);
  if (command == "/import") return Import(arguments[1], machine);
  return Delete(arguments[1], machine.boot());
}

}  // namespace simulator
