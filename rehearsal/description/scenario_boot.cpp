#include "rehearsal/description/scenario_boot.h"

#include <cstdint>
#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"

namespace simulator {
namespace {

struct Manager {
  std::string locale = "en-US";
  std::string device = "partition=C:";
};

Manager ReadManager(const JsonPlace& place) {
  place.AllowKeys({"locale", "device"});
  Manager manager;
  if (const auto locale = place.Find("locale")) manager.locale = locale->Line();
  if (const auto device = place.Find("device")) manager.device = device->Line();
  return manager;
}

BootEntryType ReadType(const JsonPlace& place) {
  const std::string name = place.Text();
  if (name == "loader") return BootEntryType::kLoader;
  if (name == "legacy") return BootEntryType::kLegacyLoader;
  if (name == "sector") return BootEntryType::kBootSector;
  place.Fail("\"loader\", \"legacy\" or \"sector\"");
}

BootEntry ReadLoader(const JsonPlace& place, uint32_t number, bool uefi) {
  place.AllowKeys({"description", "type", "locale", "device", "current", "default", "displayed"});
  const auto type = place.Find("type");
  const auto locale = place.Find("locale");
  const auto device = place.Find("device");
  BootEntry entry;
  entry.type = type ? ReadType(*type) : BootEntryType::kLoader;
  entry.identifier = NumberedIdentifier(2 * number);
  const std::string description = place.At("description").Line();
  const std::string where = device ? device->Line() : "partition=C:";
  if (entry.type != BootEntryType::kLoader) {
    if (locale) locale->Fail("no locale but of a \"loader\"");
    const auto current = place.Find("current");
    if (current && current->Truth()) current->Fail("true for a \"loader\" alone");
    const bool is_legacy = entry.type == BootEntryType::kLegacyLoader;
    if (is_legacy) entry.identifier = "{ntldr}";
    entry.elements = {{"device", {where}},
                      {"path", {is_legacy ? "\\ntldr" : "\\boot\\sector.mbr"}},
                      {"description", {description}}};
    return entry;
  }
  entry = WindowsLoader({"C:\\Windows", description, locale ? locale->Line() : "en-US", uefi},
                        entry.identifier, NumberedIdentifier(2 * number + 1));
  entry.Set("device", {where});
  entry.Set("osdevice", {where});
  return entry;
}

// Of two marks that only one loader may have. Gives `marked` the loader's identifier if it has it.
void ReadMark(const JsonPlace& loader, const std::string& mark, const std::string& identifier,
              std::string* marked) {
  const auto found = loader.Find(mark);
  if (!found || !found->Truth()) return;
  if (!marked->empty()) found->Fail("true for one loader only");
  *marked = identifier;
}

}  // namespace

Boot ReadBoot(const JsonPlace& place, bool uefi) {
  place.AllowKeys({"manager", "loaders"});
  const auto given = place.Find("manager");
  const Manager manager = given ? ReadManager(*given) : Manager();
  Boot boot;
  std::string default_loader;
  std::vector<std::string> displayed;
  for (const JsonPlace& loader : place.At("loaders").Elements()) {
    const auto number = static_cast<uint32_t>(boot.store.entries.size());
    BootEntry entry = ReadLoader(loader, number, uefi);
    if (boot.store.Find(entry.identifier) != nullptr) {
      loader.Fail("no more than one \"legacy\" loader");
    }
    ReadMark(loader, "current", entry.identifier, &boot.current);
    ReadMark(loader, "default", entry.identifier, &default_loader);
    const auto shown = loader.Find("displayed");
    if (!shown || shown->Truth()) displayed.push_back(entry.identifier);
    boot.store.entries.push_back(std::move(entry));
  }
  boot.store.entries.insert(
      boot.store.entries.begin(),
      WindowsManager({manager.device, manager.locale, default_loader, "", displayed, uefi}));
  return boot;
}

}  // namespace simulator
