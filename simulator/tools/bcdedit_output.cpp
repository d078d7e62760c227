#include "simulator/tools/bcdedit_output.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "simulator/tools/columns.h"

namespace simulator {
namespace {

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
  const auto* const found =
      std::find_if(std::begin(kWords), std::end(kWords),
                   [&](const Words& words) { return words.language == language; });
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

}  // namespace

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

}  // namespace simulator
