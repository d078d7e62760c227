// The boot configuration data of a server: what its boot manager offers and how each entry starts.
#ifndef SIMULATOR_MODEL_BOOT_BOOT_STORE_H_
#define SIMULATOR_MODEL_BOOT_BOOT_STORE_H_

#include <string>
#include <string_view>
#include <vector>

namespace simulator {

inline constexpr std::string_view kBootManager = "{bootmgr}";

enum class BootEntryType { kManager, kLoader, kLegacyLoader, kBootSector };

struct BootElement {
  std::string name;                 // "displayorder"
  std::vector<std::string> values;  // as the boot tools print them, but for identifiers; see below
  friend bool operator==(const BootElement&, const BootElement&) = default;
};

// Identifiers are "{bootmgr}", "{memdiag}", "{ntldr}" and the like, or GUIDs in braces in lower
// case. They stand so in values, too: the names {current} and {default} are the tools' matter.
struct BootEntry {
  BootEntryType type = BootEntryType::kLoader;
  std::string identifier;
  std::vector<BootElement> elements;  // in the order in which they are printed

  // Empty when there is no such element.
  std::vector<std::string> Values(std::string_view element) const;
  // Of an element with one value; empty when there is none.
  std::string Value(std::string_view element) const;
  // Replaces the element, or appends it; without values it goes.
  void Set(std::string_view element, std::vector<std::string> values);

  friend bool operator==(const BootEntry&, const BootEntry&) = default;
};

struct BootStore {
  std::vector<BootEntry> entries;

  // Null when there is none.
  const BootEntry* Find(std::string_view identifier) const;
  BootEntry* Find(std::string_view identifier);
  // With every reference to it; references to what is not there go as well.
  void Remove(std::string_view identifier);

  friend bool operator==(const BootStore&, const BootStore&) = default;
};

// Whether the values of the element name entries.
bool RefersToEntries(std::string_view element);

// Used by the thread of one tool at a time, and by tests while no child runs.
struct Boot {
  BootStore store;
  std::string current;  // the loader that the running Windows was started by; empty when none is
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_BOOT_BOOT_STORE_H_
