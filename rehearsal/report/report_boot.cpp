#include "rehearsal/report/report_boot.h"

#include <algorithm>
#include <array>
#include <vector>

#include "simulator/model/common/path_name.h"
#include "simulator/tools/columns.h"

namespace simulator {
namespace {

using Row = std::array<std::string, 3>;

bool IsEnglish(const std::string& locale) { return NameKey(locale) == "en-us"; }

bool IsInOrder(const BootStore& store) {
  if (store.entries.empty()) return true;
  const BootEntry* const manager = store.Find(kBootManager);
  if (manager == nullptr) return false;
  const std::string default_loader = manager->Value("default");
  const BootEntry* const loader = store.Find(default_loader);
  if (loader == nullptr) return false;
  if (manager->Values("displayorder") != std::vector<std::string>{default_loader}) return false;
  const std::string locale = loader->Value("locale");
  return locale.empty() || IsEnglish(locale) || locale == manager->Value("locale");
}

// "zh-CN", "default, zh-CN", "displayed", "not displayed"; "-" for what is not in the store.
std::string State(const BootStore& store, const std::string& identifier) {
  const BootEntry* const entry = store.Find(identifier);
  if (entry == nullptr) return "-";
  std::string locale = entry->Value("locale");
  if (identifier == kBootManager) return locale;
  const BootEntry* const manager = store.Find(kBootManager);
  std::string state = "not displayed";
  if (manager != nullptr) {
    const std::vector<std::string> order = manager->Values("displayorder");
    const bool is_displayed = std::find(order.begin(), order.end(), identifier) != order.end();
    if (is_displayed) state = "displayed";
    if (manager->Value("default") == identifier) {
      state = is_displayed ? "default" : "default, not displayed";
    }
  }
  return locale.empty() ? state : state + ", " + locale;
}

std::string Conclusion(const BootStore& before, const BootStore& after) {
  if (IsInOrder(before)) return before == after ? "nothing to do" : "not repaired";
  return IsInOrder(after) ? "repaired" : "not repaired";
}

}  // namespace

std::string BootReport(const BootStore& before, const BootStore& after) {
  std::vector<Row> rows = {{"boot entry", "before", "after"}};
  const auto add = [&](const BootEntry& entry) {
    rows.push_back({entry.Value("description"), State(before, entry.identifier),
                    State(after, entry.identifier)});
  };
  std::string conclusion = "boot: " + Conclusion(before, after) + "\n";
  if (before.entries.empty() && after.entries.empty()) return conclusion;
  for (const BootEntry& entry : before.entries) add(entry);
  for (const BootEntry& entry : after.entries) {
    if (before.Find(entry.identifier) == nullptr) add(entry);
  }
  size_t first = 0;
  size_t second = 0;
  for (const Row& row : rows) {
    first = std::max(first, CharacterCount(row[0]));
    second = std::max(second, CharacterCount(row[1]));
  }
  std::string text;
  for (const Row& row : rows) {
    text += "  " + LeftColumn(row[0], first) + "  " + LeftColumn(row[1], second) + "  " + row[2];
    text += "\n";
  }
  return text + conclusion;
}

}  // namespace simulator
