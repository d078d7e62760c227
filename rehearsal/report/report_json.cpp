#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "rehearsal/report/report.h"
#include "simulator/model/boot/boot_store.h"

namespace simulator {
namespace {

using nlohmann::ordered_json;

constexpr int kFormat = 1;

ordered_json LetterJson(std::optional<char> letter) {
  return letter ? ordered_json(std::string(1, *letter)) : ordered_json();
}

std::string OutcomeName(RunOutcome outcome) {
  switch (outcome) {
    case RunOutcome::kSucceeded:
      return "succeeded";
    case RunOutcome::kFailed:
      return "failed";
    case RunOutcome::kCancelled:
      break;
  }
  return "cancelled";
}

std::string VerdictName(BootVerdict verdict) {
  switch (verdict) {
    case BootVerdict::kNothingToDo:
      return "nothing_to_do";
    case BootVerdict::kRepaired:
      return "repaired";
    case BootVerdict::kNotRepaired:
      break;
  }
  return "not_repaired";
}

std::string VerdictName(JunctionVerdict verdict) {
  switch (verdict) {
    case JunctionVerdict::kMade:
      return "made";
    case JunctionVerdict::kTargetMissing:
      return "target_missing";
    case JunctionVerdict::kTargetLost:
      return "target_lost";
    case JunctionVerdict::kAlreadyThere:
      return "already_there";
    case JunctionVerdict::kWrongTarget:
      return "wrong_target";
    case JunctionVerdict::kNotInCodePage:
      return "not_in_code_page";
    case JunctionVerdict::kNotMade:
      break;
  }
  return "not_made";
}

ordered_json EntriesJson(const BootStore& store) {
  ordered_json entries = ordered_json::array();
  const BootEntry* const manager = store.Find(kBootManager);
  const std::vector<std::string> order =
      manager == nullptr ? std::vector<std::string>() : manager->Values("displayorder");
  for (const BootEntry& entry : store.entries) {
    const bool is_default = manager != nullptr && manager->Value("default") == entry.identifier;
    const bool is_displayed =
        std::find(order.begin(), order.end(), entry.identifier) != order.end();
    entries.push_back({{"description", entry.Value("description")},
                       {"locale", entry.Value("locale")},
                       {"default", is_default},
                       {"displayed", is_displayed}});
  }
  return entries;
}

ordered_json BootJson(const BootChange& change) {
  const BootOutcome outcome = JudgeBoot(change);
  return {{"right", outcome.IsRight()},
          {"outcome", VerdictName(outcome.verdict)},
          {"wrong", outcome.wrong},
          {"cause", outcome.cause},
          {"remedy", outcome.remedy},
          {"entries_before", EntriesJson(change.before)},
          {"entries_after", EntriesJson(change.after)}};
}

ordered_json LettersJson(const std::vector<VolumeLetters>& volumes) {
  ordered_json all = ordered_json::array();
  for (const VolumeLetters& volume : volumes) {
    all.push_back({{"disk", volume.disk},
                   {"partition", volume.partition},
                   {"label", volume.label},
                   {"size", volume.size},
                   {"source", LetterJson(volume.source)},
                   {"before", LetterJson(volume.before)},
                   {"after", LetterJson(volume.after)},
                   {"right", !volume.IsWrong()},
                   {"cause", CauseName(volume.reason.cause)},
                   {"reason", volume.reason.text}});
  }
  return {{"right", AreLettersRight(volumes)}, {"volumes", std::move(all)}};
}

ordered_json JunctionsJson(const std::vector<JunctionOutcome>& junctions) {
  ordered_json all = ordered_json::array();
  for (const JunctionOutcome& junction : junctions) {
    const JunctionVerdict verdict = VerdictOn(junction);
    all.push_back({{"path", junction.path},
                   {"target", junction.target},
                   {"right", IsRight(verdict)},
                   {"outcome", VerdictName(verdict)}});
  }
  return {{"right", AreJunctionsRight(junctions)}, {"junctions", std::move(all)}};
}

ordered_json DescriptorsJson(const DescriptorOutcome& outcome) {
  ordered_json differences = ordered_json::array();
  for (const DescriptorDifference& difference : outcome.differences) {
    differences.push_back(
        {{"path", difference.path}, {"wanted", difference.wanted}, {"found", difference.found}});
  }
  const ordered_json lost = {{"mandatory_labels", outcome.lost_entries.labels},
                             {"resource_attributes", outcome.lost_entries.attributes},
                             {"central_policies", outcome.lost_entries.policies},
                             {"not_in_code_page", CountUnnamed(outcome)}};
  return {{"right", outcome.differences.empty()},
          {"objects", outcome.objects},
          {"equal", outcome.objects - outcome.differences.size()},
          {"cannot_come_back", lost},
          {"differences", std::move(differences)}};
}

ordered_json ListsJson(const std::vector<ListOutcome>& lists) {
  ordered_json all = ordered_json::array();
  for (const ListOutcome& list : lists) {
    all.push_back(
        {{"letter", LetterJson(list.letter)},
         {"junctions", list.junctions ? JunctionsJson(*list.junctions) : ordered_json()},
         {"descriptors", list.descriptors ? DescriptorsJson(*list.descriptors) : ordered_json()}});
  }
  return {{"right", AreListsRight(lists)}, {"volumes", std::move(all)}};
}

ordered_json RestartJson(const Report& report) {
  ordered_json restart = {{"right", IsRestartRight(report)}, {"request", nullptr}};
  if (report.restart) {
    restart["request"] = {{"reboot", report.restart->reboot},
                          {"seconds", report.restart->seconds},
                          {"message", report.restart->message},
                          {"force_apps_closed", report.restart->force_apps_closed}};
  }
  return restart;
}

}  // namespace

std::string ReportJson(const Report& report) {
  const ordered_json document = {
      {"format", kFormat},
      {"title", report.title},
      {"right", IsRight(report)},
      {"run", {{"outcome", OutcomeName(report.run.outcome)}, {"reason", report.run.reason}}},
      {"boot", BootJson(report.boot)},
      {"letters", LettersJson(report.letters)},
      {"junctions", JunctionsJson(report.junctions)},
      {"descriptors", DescriptorsJson(report.descriptors)},
      {"lists", ListsJson(report.lists)},
      {"restart", RestartJson(report)}};
  return document.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

}  // namespace simulator
