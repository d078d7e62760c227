#include "fault_sweep/outcome.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <string_view>

#include "rehearsal/description/scenario.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/threads.h"

namespace fault_sweep {
namespace {

constexpr char kTotals[] = "Vantoro Restore Finish, Total ";

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

bool HasOneOf(const std::string& text, std::string_view alternatives) {
  for (;;) {
    const size_t end = alternatives.find('|');
    if (Has(text, alternatives.substr(0, end))) return true;
    if (end == std::string_view::npos) return false;
    alternatives.remove_prefix(end + 1);
  }
}

std::string Text(const std::vector<std::string>& names) {
  constexpr size_t kMost = 12;
  std::string text;
  for (size_t i = 0; i < std::min(names.size(), kMost); ++i) text += "\n    " + names[i];
  return names.size() > kMost ? text + "\n    and more" : text;
}

// What the call that failed may leave open.
bool MayStayOpen(const ReferenceCall& call, const std::string& kind) {
  if (call.name == "CloseHandle") return true;
  if (call.name == "CreateProcessA") return kind == "pipe read end" || kind == "pipe write end";
  return call.name == "AdjustTokenPrivileges" && Has(call.phase, "Modify Privilege") &&
         kind == "token";
}

int CountOf(const std::string& text, std::string_view part) {
  int count = 0;
  for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

bool IsOfStages(const std::string& name) {
  return name.starts_with("letter of ") || name.starts_with("boot ");
}

}  // namespace

Outcome::Outcome(const Reference& reference, int number, SweptServer& swept, const Report& report)
    : reference_(reference),
      call_(reference.Call(number)),
      swept_(swept),
      report_(report),
      state_(swept.State()),
      differences_(Differences(reference.after, state_)),
      log_(WithPlainLineEnds(swept.Log())),
      console_(swept.server().console().Text()) {}

void Outcome::CheckResources(int local_blocks) {
  std::map<std::string, int> kinds;
  for (const std::string& kind : swept_.server().OpenHandles()) ++kinds[kind];
  --kinds["thread"];                       // the worker's
  if (AsksForRestart()) --kinds["token"];  // that of the restart
  for (const auto& [kind, count] : kinds) {
    if (count > 0 && !MayStayOpen(call_, kind)) {
      report_.Problem(std::to_string(count) + " more of this kind left open: " + kind);
    }
  }
  if (local_blocks != 0 && call_.name != "LocalFree") {
    report_.Problem(std::to_string(local_blocks) + " blocks of the platform's heap left");
  }
  if (swept_.server().threads().LiveCriticalSections() != 0) {
    report_.Problem("a critical section is left");
  }
}

void Outcome::CheckSaid(const Rule& rule) {
  if (rule.said == Said::kLine && !HasOneOf(log_, rule.text)) {
    report_.Problem("the log lacks: " + std::string(rule.text));
  }
  if (rule.said != Said::kBox) return;
  for (const simulator::ShownMessageBox& box : swept_.server().message_boxes().Shown()) {
    if (Has(box.text, rule.text)) return;
  }
  report_.Problem("no box says: " + std::string(rule.text));
}

void Outcome::CheckUndone(Undone undone) {
  const bool has_stages = std::none_of(differences_.begin(), differences_.end(), &IsOfStages);
  switch (undone) {
    case Undone::kNothing:
      if (!differences_.empty()) report_.Problem("undone or more:" + Text(differences_));
      break;
    case Undone::kObjects:
    case Undone::kVolumes:
      if (!has_stages) report_.Problem("letters or boot store are wrong:" + Text(differences_));
      break;
    case Undone::kStages:
      break;
    case Undone::kRun:
      if (state_ != reference_.before) {
        report_.Problem("changed:" + Text(Differences(reference_.before, state_)));
      }
      break;
  }
}

void Outcome::CheckOneUndone() {
  const bool is_one =
      std::all_of(differences_.begin(), differences_.end(), [this](const std::string& name) {
        return name.starts_with(differences_.front()) || name.ends_with(".lnk");
      });
  if (!is_one) report_.Problem("too much is undone:" + Text(differences_));
}

void Outcome::CheckTotals(const LastingRule& rule) {
  const size_t at = console_.find(kTotals);
  if (at == std::string::npos) {
    if (rule.undone != Undone::kRun) report_.Problem("there are no totals");
    return;
  }
  const std::string line = console_.substr(at, console_.find('\n', at) - at);
  int failed = 0;
  const std::string visits = console_.substr(0, at);
  for (size_t d = 0; d < swept_.scenario().disks.size(); ++d) {
    const simulator::ScenarioDisk& disk = swept_.scenario().disks[d];
    for (size_t p = 0; p < disk.partitions.size(); ++p) {
      if (!disk.partitions[p].volume) continue;
      const auto& volume = swept_.server().disks().at(d).partitions.at(p).volume;
      const std::optional<char> letter = swept_.server().files().LetterOf(*volume);
      if (letter && CheckVolume(*disk.partitions[p].volume, *letter, rule)) ++failed;
    }
  }
  const int total = CountOf(visits, "Restore [");
  const std::string wanted = kTotals + std::to_string(total) + " disks, Finish " +
                             std::to_string(total - failed) + ", Error " + std::to_string(failed) +
                             "!";
  if (rule.has_log && !Has(line, wanted))
    report_.Problem("totals: " + line + " and not: " + wanted);

  const bool has_succeeded = Has(line, "Error 0!") && total > 0;
  if (Has(console_, "Vantoro Restore Finished!") != has_succeeded ||
      Has(console_, "Vantoro Restore Not Finished!") == has_succeeded) {
    report_.Problem("the result is not that of: " + line);
  }
  if (call_.name == "MessageBoxA" || call_.name == "LoadStringA") return;
  if (AsksForRestart() != has_succeeded) {
    report_.Problem("the box at the end is not that of: " + line);
  }
}

bool Outcome::CheckVolume(const simulator::ScenarioVolume& volume, char letter,
                          const LastingRule& rule) {
  const std::string root =
      std::string(1, static_cast<char>(std::tolower(static_cast<unsigned char>(letter)))) + ":\\";
  const std::string visit = LogOf(log_, root);
  if (Has(visit, "restore failed, code=")) return true;
  if (!rule.has_log || visit.empty() || Has(visit, "Skip...")) return false;
  // It counts as finished.
  if (!rule.passes_over && HasLetters() && HasUndone(volume.label)) {
    report_.Problem(volume.label + " counts as finished and is not:" + Text(differences_));
  }
  if (volume.source_letter && *volume.source_letter != letter) {
    report_.Problem(volume.label + " counts as finished under the letter " + letter);
  }
  return false;
}

bool Outcome::AsksForRestart() const {
  const std::vector<simulator::ShownMessageBox> boxes = swept_.server().message_boxes().Shown();
  return std::any_of(boxes.begin(), boxes.end(), [](const simulator::ShownMessageBox& box) {
    return (box.type & MB_ICONWARNING) == MB_ICONQUESTION;
  });
}

bool Outcome::HasLetters() const {
  return std::none_of(differences_.begin(), differences_.end(), &IsOfStages);
}

bool Outcome::HasUndone(const std::string& volume) const {
  return std::any_of(differences_.begin(), differences_.end(), [&volume](const std::string& name) {
    return name.starts_with(volume + ":") && !name.ends_with(".lnk") && !name.ends_with("BCD_BAK");
  });
}

std::string Outcome::LogOf(const std::string& text, const std::string& root) const {
  const size_t begin = text.find("Restore [" + root + "]...");
  if (begin == std::string::npos) return "";
  const size_t behind = begin + root.size();
  const size_t end = std::min(text.find("Restore [", behind), text.find(kTotals, behind));
  return text.substr(begin, end == std::string::npos ? end : end - begin);
}

}  // namespace fault_sweep
