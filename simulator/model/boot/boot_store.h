// A BCD store of a server: what its boot manager offers and how each entry starts, and the entries
// of a healthy Windows Server.
#ifndef SIMULATOR_MODEL_BOOT_BOOT_STORE_H_
#define SIMULATOR_MODEL_BOOT_BOOT_STORE_H_

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Volume;

inline constexpr std::string_view kBootManager = "{bootmgr}";

enum class BootEntryType { kManager, kLoader, kLegacyLoader, kBootSector };

struct BootElement {
  std::string name;                 // "displayorder"
  std::vector<std::string> values;  // as the boot tools print them, except identifiers
  friend bool operator==(const BootElement&, const BootElement&) = default;
};

// Identifiers are well-known names such as "{bootmgr}", "{memdiag}" and "{ntldr}", or GUIDs in
// braces in lower case. Values that name an entry hold its identifier in this form, too. The names
// {current} and {default} are used only by the tools.
struct BootEntry {
  BootEntryType type = BootEntryType::kLoader;
  std::string identifier;
  std::vector<BootElement> elements;  // in the order in which they are printed

  // Returns the values of an element, or nothing if the element does not exist.
  std::vector<std::string> Values(std::string_view element) const;
  // Returns the value of an element that has exactly one value; otherwise returns an empty string.
  std::string Value(std::string_view element) const;
  // Replaces the element or appends it. Removes the element if `values` is empty.
  void Set(std::string_view element, std::vector<std::string> values);

  friend bool operator==(const BootEntry&, const BootEntry&) = default;
};

struct BootStore {
  std::vector<BootEntry> entries;

  // Returns null if there is no such entry.
  const BootEntry* Find(std::string_view identifier) const;
  BootEntry* Find(std::string_view identifier);
  // Removes the entry, if it exists, and every reference to its identifier.
  void Remove(std::string_view identifier);

  friend bool operator==(const BootStore&, const BootStore&) = default;
};

// Returns true if the values of the element are identifiers of entries; otherwise returns false.
bool RefersToEntries(std::string_view element);

// Used by the thread of one tool at a time, and by tests while no child runs.
struct Boot {
  BootStore store;      // the one in use, on the partition that the firmware boots from
  std::string current;  // the loader that started the running Windows; empty if none did
  // The stores on other volumes, which nothing reads at boot.
  std::map<const Volume*, BootStore> unused = {};
};

struct InstalledWindows {
  std::string folder;  // a full path: "C:\Windows"
  std::string description;
  std::string locale;
  bool uefi = false;  // the server's firmware
};

BootEntry WindowsLoader(const InstalledWindows& windows, std::string_view identifier,
                        std::string_view resume_identifier);

struct BootManagerFacts {
  std::string device;  // "partition=C:"
  std::string locale;
  std::string default_loader;  // an identifier; empty if there is none
  std::string resume_object;   // likewise
  std::vector<std::string> displayed;
  bool uefi = false;
};

BootEntry WindowsManager(const BootManagerFacts& facts);

// Returns an identifier with that number: "{00000007-4f2c-11ee-b962-806e6f6e6963}" for 7.
std::string NumberedIdentifier(uint32_t number);

// Returns a boot manager and one loader, which is the default entry and the current one.
Boot HealthyBoot(bool uefi = false);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_BOOT_BOOT_STORE_H_
