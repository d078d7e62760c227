#include "simulator/model/boot/boot_store.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace simulator {

std::vector<std::string> BootEntry::Values(std::string_view element) const {
  const auto found = std::find_if(elements.begin(), elements.end(),
                                  [&](const BootElement& each) { return each.name == element; });
  return found == elements.end() ? std::vector<std::string>() : found->values;
}

std::string BootEntry::Value(std::string_view element) const {
  const std::vector<std::string> values = Values(element);
  return values.size() == 1 ? values.front() : "";
}

void BootEntry::Set(std::string_view element, std::vector<std::string> values) {
  const auto found = std::find_if(elements.begin(), elements.end(),
                                  [&](const BootElement& each) { return each.name == element; });
  if (values.empty()) {
    if (found != elements.end()) elements.erase(found);
  } else if (found != elements.end()) {
    found->values = std::move(values);
  } else {
    elements.push_back({std::string(element), std::move(values)});
  }
}

const BootEntry* BootStore::Find(std::string_view identifier) const {
  for (const BootEntry& entry : entries) {
    if (entry.identifier == identifier) return &entry;
  }
  return nullptr;
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
  return std::find(std::begin(kReferences), std::end(kReferences), element) !=
         std::end(kReferences);
}

}  // namespace simulator
