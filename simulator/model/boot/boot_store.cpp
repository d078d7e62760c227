#include "simulator/model/boot/boot_store.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>
#include <utility>

namespace simulator {

std::vector<std::string> BootEntry::Values(std::string_view element) const {
  const auto found = std::ranges::find(elements, element, &BootElement::name);
  return found == elements.end() ? std::vector<std::string>() : found->values;
}

std::string BootEntry::Value(std::string_view element) const {
  const std::vector<std::string> values = Values(element);
  return values.size() == 1 ? values.front() : "";
}

void BootEntry::Set(std::string_view element, std::vector<std::string> values) {
  const auto found = std::ranges::find(elements, element, &BootElement::name);
  if (values.empty()) {
    if (found != elements.end()) elements.erase(found);
  } else if (found != elements.end()) {
    found->values = std::move(values);
  } else {
    elements.push_back({std::string(element), std::move(values)});
  }
}

const BootEntry* BootStore::Find(std::string_view identifier) const {
  const auto found = std::ranges::find(entries, identifier, &BootEntry::identifier);
  return found == entries.end() ? nullptr : &*found;
}

BootEntry* BootStore::Find(std::string_view identifier) {
  return const_cast<BootEntry*>(std::as_const(*this).Find(identifier));
}

void BootStore::Remove(std::string_view identifier) {
  const std::string removed(identifier);  // it may lie in the entry itself
  std::erase_if(entries, [&](const BootEntry& entry) { return entry.identifier == removed; });
  for (BootEntry& entry : entries) {
    for (BootElement& element : entry.elements) {
      if (RefersToEntries(element.name)) std::erase(element.values, removed);
    }
    std::erase_if(entry.elements, [](const BootElement& each) { return each.values.empty(); });
  }
}

bool RefersToEntries(std::string_view element) {
  constexpr std::string_view kReferences[] = {
      "bootsequence",     "default",      "displayorder",      "inherit",
      "recoverysequence", "resumeobject", "toolsdisplayorder",
  };
  return std::ranges::find(kReferences, element) != std::end(kReferences);
}

BootEntry WindowsLoader(const InstalledWindows& windows, std::string_view identifier,
                        std::string_view resume_identifier) {
  const std::string partition = "partition=" + windows.folder.substr(0, 2);
  const std::string root = windows.folder.substr(2);
  return {BootEntryType::kLoader,
          std::string(identifier),
          {{"device", {partition}},
           {"path", {root + "\\system32\\winload." + (windows.uefi ? "efi" : "exe")}},
           {"description", {windows.description}},
           {"locale", {windows.locale}},
           {"inherit", {"{bootloadersettings}"}},
           {"recoveryenabled", {"No"}},
           {"allowedinmemorysettings", {"0x15000075"}},
           {"osdevice", {partition}},
           {"systemroot", {root}},
           {"resumeobject", {std::string(resume_identifier)}},
           {"nx", {"OptOut"}},
           {"bootstatuspolicy", {"IgnoreAllFailures"}},
           {"ems", {"Yes"}}}};
}

BootEntry WindowsManager(const BootManagerFacts& facts) {
  BootEntry manager{BootEntryType::kManager, std::string(kBootManager), {}};
  const auto set_known = [&manager](std::string_view element, const std::string& value) {
    if (!value.empty()) manager.Set(element, {value});
  };
  manager.Set("device", {facts.device});
  if (facts.uefi) manager.Set("path", {"\\EFI\\Microsoft\\Boot\\bootmgfw.efi"});
  manager.Set("description", {"Windows Boot Manager"});
  manager.Set("locale", {facts.locale});
  manager.Set("inherit", {"{globalsettings}"});
  manager.Set("bootshutdowndisabled", {"Yes"});
  set_known("default", facts.default_loader);
  set_known("resumeobject", facts.resume_object);
  manager.Set("displayorder", facts.displayed);
  manager.Set("toolsdisplayorder", {"{memdiag}"});
  manager.Set("timeout", {"30"});
  return manager;
}

std::string NumberedIdentifier(uint32_t number) {
  std::array<char, 39> text{};
  std::snprintf(text.data(), text.size(), "{%08x-4f2c-11ee-b962-806e6f6e6963}", number);
  return text.data();
}

Boot HealthyBoot(bool uefi) {
  BootEntry loader = WindowsLoader({"C:\\Windows", "Windows Server 2016", "en-US", uefi},
                                   "{b35d4dcb-5b1e-11e9-a814-000d3a05463f}",
                                   "{b35d4dca-5b1e-11e9-a814-000d3a05463f}");
  std::string current = loader.identifier;
  BootEntry manager = WindowsManager(
      {"partition=C:", "en-US", current, loader.Value("resumeobject"), {current}, uefi});
  return {{{std::move(manager), std::move(loader)}}, std::move(current)};
}

}  // namespace simulator
