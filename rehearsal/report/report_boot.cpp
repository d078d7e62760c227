#include "rehearsal/report/report_boot.h"

#include <algorithm>
#include <array>
#include <utility>

#include "rehearsal/description/scenario.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/tools/columns.h"

namespace simulator {
namespace {

using Row = std::array<std::string, 3>;

bool IsEnglish(const std::string& locale) { return NameKey(locale) == "en-us"; }

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

// The locale that the boot manager should have; empty if any will do.
std::string WantedLocale(const BootStore& store, const BootEntry& manager) {
  const BootEntry* const loader = store.Find(manager.Value("default"));
  const std::string locale = loader == nullptr ? "" : loader->Value("locale");
  return IsEnglish(locale) ? "" : locale;
}

std::vector<std::string> WrongEntries(const BootStore& store, const BootEntry& manager) {
  const std::string default_entry = manager.Value("default");
  if (store.Find(default_entry) == nullptr) return {"the boot manager has no default entry"};
  std::vector<std::string> wrong;
  bool is_displayed = false;
  for (const std::string& identifier : manager.Values("displayorder")) {
    const BootEntry* const entry = store.Find(identifier);
    is_displayed = is_displayed || identifier == default_entry;
    if (identifier == default_entry) continue;
    const std::string name = entry == nullptr ? identifier : entry->Value("description");
    wrong.push_back("the boot manager still displays " + Quoted(name));
  }
  if (!is_displayed) wrong.emplace_back("the boot manager does not display the default entry");
  return wrong;
}

bool HasWrongLocale(const BootStore& store, const BootEntry& manager) {
  const std::string wanted = WantedLocale(store, manager);
  return !wanted.empty() && wanted != manager.Value("locale");
}

bool IsInOrder(const BootStore& store) {
  if (store.entries.empty()) return true;
  const BootEntry* const manager = store.Find(kBootManager);
  return manager != nullptr && WrongEntries(store, *manager).empty() &&
         !HasWrongLocale(store, *manager);
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

// Why the locale stayed wrong, as far as the server shows it.
void ExplainLocale(const BootChange& change, const std::string& locale, BootOutcome& outcome) {
  if (!change.has_bcdboot) {
    outcome.cause = "this Windows has no \"bcdboot\"";
    outcome.remedy = "run " + Quoted("bcdedit /set {bootmgr} locale " + locale);
  } else if (!change.unused_drive.empty()) {
    outcome.cause = "\"bcdboot\" wrote a new store to " + change.unused_drive +
                    ", but the server boots from " + change.system_partition;
    outcome.remedy = "give that partition a letter, for example S:, run " +
                     Quoted("bcdboot C:\\Windows /s S: /l " + locale) + " and remove the letter";
  }
}

void ListWrong(const BootChange& change, BootOutcome& outcome) {
  const BootStore& store = change.after;
  const BootEntry* const manager = store.Find(kBootManager);
  if (IsInOrder(store)) {
    outcome.wrong = {"the store was in order and has changed"};
  } else if (manager == nullptr) {
    outcome.wrong = {"there is no boot manager"};
  } else {
    outcome.wrong = WrongEntries(store, *manager);
    if (!HasWrongLocale(store, *manager)) return;
    const std::string locale = WantedLocale(store, *manager);
    outcome.wrong.push_back("the boot manager is in " + manager->Value("locale") + ", not in " +
                            locale);
    ExplainLocale(change, locale, outcome);
  }
}

std::string Table(const BootStore& before, const BootStore& after) {
  if (before.entries.empty() && after.entries.empty()) return "";
  std::vector<Row> rows = {{"boot entry", "before", "after"}};
  const auto add = [&](const BootEntry& entry) {
    rows.push_back({entry.Value("description"), State(before, entry.identifier),
                    State(after, entry.identifier)});
  };
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
  return text;
}

std::string InWords(const SystemPartition& system) {
  const Partition& partition = system.partition;
  std::string words = "the partition";
  if (system.uefi) {
    words = "the EFI system partition";
  } else if (partition.volume && !partition.volume->label.empty()) {
    words += " " + Quoted(partition.volume->label);
  }
  return words + " (disk " + std::to_string(system.disk) + ", partition " +
         std::to_string(partition.number) + ")";
}

}  // namespace

BootChange GatherBoot(const Scenario& scenario, BootStore before, const Boot& after,
                      const std::vector<Disk>& disks,
                      const std::function<std::optional<char>(const Volume&)>& letter_of) {
  BootChange change{std::move(before), after.store, "the partition of Windows", "", false};
  for (const std::string& tool : scenario.Tools()) {
    change.has_bcdboot = change.has_bcdboot || tool == "bcdboot";
  }
  const std::optional<SystemPartition> system = FindSystemPartition(disks);
  if (system) change.system_partition = InWords(*system);
  for (const auto& [volume, store] : after.unused) {
    const std::optional<char> letter = letter_of(*volume);
    if (letter) change.unused_drive = std::string(1, *letter) + ":";
  }
  return change;
}

BootChange GatherBoot(const Scenario& scenario, BootStore before, Server& server) {
  return GatherBoot(scenario, std::move(before), server.boot(), server.disks(),
                    [&server](const Volume& volume) { return server.files().LetterOf(volume); });
}

BootOutcome JudgeBoot(const BootChange& change) {
  BootOutcome outcome;
  const bool was_in_order = IsInOrder(change.before);
  if (was_in_order && change.before == change.after) return outcome;
  const bool is_repaired = !was_in_order && IsInOrder(change.after);
  outcome.verdict = is_repaired ? BootVerdict::kRepaired : BootVerdict::kNotRepaired;
  if (!is_repaired) ListWrong(change, outcome);
  return outcome;
}

std::string BootReport(const BootChange& change) {
  const BootOutcome outcome = JudgeBoot(change);
  std::string text = Table(change.before, change.after) + "boot: ";
  switch (outcome.verdict) {
    case BootVerdict::kNothingToDo:
      text += "nothing to do";
      break;
    case BootVerdict::kRepaired:
      text += "repaired";
      break;
    case BootVerdict::kNotRepaired:
      text += "not repaired";
      break;
  }
  const char* separator = ": ";
  for (const std::string& wrong : outcome.wrong) {
    text += separator + wrong;
    separator = "; ";
  }
  if (!outcome.cause.empty()) text += ": " + outcome.cause;
  text += "\n";
  if (!outcome.remedy.empty()) text += "  " + outcome.remedy + "\n";
  if (outcome.cause.empty() && !change.unused_drive.empty()) {
    text += "  " + change.unused_drive + " has a store that the server does not boot from\n";
  }
  return text;
}

}  // namespace simulator
