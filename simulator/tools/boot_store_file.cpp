#include "simulator/tools/boot_store_file.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace simulator {
namespace {

using nlohmann::json;

constexpr const char* kStore = "boot_store";

struct TypeName {
  BootEntryType type;
  std::string_view name;
};

constexpr TypeName kTypes[] = {{BootEntryType::kManager, "manager"},
                               {BootEntryType::kLoader, "loader"},
                               {BootEntryType::kLegacyLoader, "legacy loader"},
                               {BootEntryType::kBootSector, "boot sector"}};

std::string_view NameOf(BootEntryType type) {
  std::string_view name;
  for (const TypeName& each : kTypes) {
    if (each.type == type) name = each.name;
  }
  return name;
}

std::optional<BootEntryType> TypeOf(std::string_view name) {
  for (const TypeName& each : kTypes) {
    if (each.name == name) return each.type;
  }
  return std::nullopt;
}

// These two give nothing where the value is of another kind.
const json* Member(const json& object, const char* key, json::value_t kind) {
  if (!object.is_object()) return nullptr;
  const auto found = object.find(key);
  return found != object.end() && found->type() == kind ? &*found : nullptr;
}

std::string Text(const json& object, const char* key) {
  const json* const text = Member(object, key, json::value_t::string);
  return text == nullptr ? "" : text->get<std::string>();
}

std::optional<BootElement> ParseElement(const json& object) {
  BootElement element;
  element.name = Text(object, "name");
  const json* const values = Member(object, "values", json::value_t::array);
  if (element.name.empty() || values == nullptr || values->empty()) return std::nullopt;
  for (const json& value : *values) {
    if (!value.is_string()) return std::nullopt;
    element.values.push_back(value.get<std::string>());
  }
  return element;
}

std::optional<BootEntry> ParseEntry(const json& object) {
  const std::optional<BootEntryType> type = TypeOf(Text(object, "type"));
  BootEntry entry;
  entry.identifier = Text(object, "identifier");
  const json* const elements = Member(object, "elements", json::value_t::array);
  if (!type || entry.identifier.empty() || elements == nullptr) return std::nullopt;
  entry.type = *type;
  for (const json& each : *elements) {
    std::optional<BootElement> element = ParseElement(each);
    if (!element || !entry.Values(element->name).empty()) return std::nullopt;
    entry.elements.push_back(*std::move(element));
  }
  return entry;
}

}  // namespace

std::string BootStoreFile(const BootStore& store) {
  json entries = json::array();
  for (const BootEntry& entry : store.entries) {
    json elements = json::array();
    for (const BootElement& element : entry.elements) {
      if (element.values.empty()) continue;
      elements.push_back({{"name", element.name}, {"values", element.values}});
    }
    entries.push_back({{"type", NameOf(entry.type)},
                       {"identifier", entry.identifier},
                       {"elements", std::move(elements)}});
  }
  const json file = {{kStore, std::move(entries)}};
  return file.dump(1, ' ', false, json::error_handler_t::replace);
}

std::optional<BootStore> ParseBootStoreFile(std::string_view bytes) {
  const json file = json::parse(bytes, nullptr, false);
  const json* const entries = Member(file, kStore, json::value_t::array);
  if (entries == nullptr) return std::nullopt;
  BootStore store;
  for (const json& each : *entries) {
    std::optional<BootEntry> entry = ParseEntry(each);
    if (!entry || store.Find(entry->identifier) != nullptr) return std::nullopt;
    store.entries.push_back(*std::move(entry));
  }
  return store;
}

}  // namespace simulator
