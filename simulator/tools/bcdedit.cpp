#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/common/system_messages.h"
#include "simulator/model/server.h"
#include "simulator/tools/boot_store_file.h"
#include "simulator/tools/columns.h"
#include "simulator/tools/machine.h"
#include "simulator/tools/tools.h"

namespace simulator {
namespace {

// The listing has the layout of the real tool. The headings and the label of the identifier are in
// the server's language if it is English, Simplified Chinese, German or Portuguese. They are in
// English for all other languages, and for headings of which no capture exists.
constexpr size_t kValueColumn = 24;
constexpr LANGID kSimplifiedChinese = 2052;

struct Words {
  LANGID language;
  std::string_view identifier;  // with its blanks: a Chinese character takes two columns
  std::string_view manager;
  std::string_view loader;
  std::string_view legacy_loader;
  std::string_view boot_sector;
};

constexpr Words kEnglish = {1033,
                            "identifier              ",
                            "Windows Boot Manager",
                            "Windows Boot Loader",
                            "Windows Legacy OS Loader",
                            "Real-mode Boot Sector"};

constexpr Words kWords[] = {
    kEnglish,
    {kSimplifiedChinese, "标识符                  ", "Windows 启动管理器", "Windows 启动加载器",
     kEnglish.legacy_loader, "实模式启动扇区"},
    {1031, "Bezeichner              ", "Windows-Start-Manager", "Windows-Startladeprogramm",
     kEnglish.legacy_loader, kEnglish.boot_sector},
    {2070, "identificador           ", "Gestor de Arranque do Windows",
     "Carregador de Arranque do Windows", kEnglish.legacy_loader, kEnglish.boot_sector},
};

const Words& WordsOf(LANGID language) {
  const auto* const found = std::ranges::find(kWords, language, &Words::language);
  return found == std::end(kWords) ? kEnglish : *found;
}

std::string_view HeadingOf(BootEntryType type, const Words& words) {
  switch (type) {
    case BootEntryType::kManager:
      return words.manager;
    case BootEntryType::kLoader:
      return words.loader;
    case BootEntryType::kLegacyLoader:
      return words.legacy_loader;
    case BootEntryType::kBootSector:
      break;
  }
  return words.boot_sector;
}

// The names that identifiers are printed by.
struct Names {
  std::string current;
  std::string default_entry;

  std::string Of(const std::string& identifier) const {
    if (identifier.empty()) return identifier;
    if (identifier == current) return "{current}";
    return identifier == default_entry ? "{default}" : identifier;
  }
};

std::string Lines(const BootElement& element, const Names& names) {
  std::string text = element.name;
  size_t column = CharacterCount(text);
  for (const std::string& value : element.values) {
    // A name that reaches the column is told from its value by one blank.
    text += std::string(column < kValueColumn ? kValueColumn - column : 1, ' ');
    text += RefersToEntries(element.name) ? names.Of(value) : value;
    text += "\r\n";
    column = 0;
  }
  return text;
}

std::string Block(const BootEntry& entry, const Names& names, const Words& words) {
  const std::string_view heading = HeadingOf(entry.type, words);
  // The Chinese tool keeps the English dashes.
  const std::string_view underlined =
      words.language == kSimplifiedChinese ? HeadingOf(entry.type, kEnglish) : heading;
  std::string text = "\r\n" + std::string(heading) + "\r\n";
  text += std::string(CharacterCount(underlined), '-') + "\r\n";
  text += std::string(words.identifier) + names.Of(entry.identifier) + "\r\n";
  for (const BootElement& element : entry.elements) {
    if (!element.values.empty()) text += Lines(element, names);
  }
  return text;
}

// Returns the listing of the boot manager and the entries that it displays. The identifier of the
// entry that started the running Windows is printed as {current} throughout. The manager's default
// entry is printed as {default} if it is another entry.
std::string BootListing(const Boot& boot, LANGID language) {
  const BootEntry* const manager = boot.store.Find(kBootManager);
  if (manager == nullptr) return "There are no matching objects or the store is empty.\r\n";
  const Names names{boot.current, manager->Value("default")};
  const Words& words = WordsOf(language);
  std::string text = Block(*manager, names, words);
  for (const std::string& identifier : manager->Values("displayorder")) {
    const BootEntry* const entry = boot.store.Find(identifier);
    if (entry != nullptr) text += Block(*entry, names, words);
  }
  return text;
}

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
  return std::ranges::find(kNames, name) != std::end(kNames);
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
