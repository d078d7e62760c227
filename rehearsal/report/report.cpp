#include "rehearsal/report/report.h"

#include <algorithm>
#include <cctype>

#include "rehearsal/description/scenario.h"
#include "rehearsal/report/report_restart.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/node.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

bool HasObject(const ImportedVolume& volume, const std::string& path) {
  if (!volume.objects) return false;
  return std::any_of(
      volume.objects->begin(), volume.objects->end(),
      [key = NameKey(path)](const ListedObject& each) { return NameKey(each.path) == key; });
}

}  // namespace

ReportStart::ReportStart(const Scenario& scenario, const std::vector<SourceVolume>& sources,
                         Server& server)
    : scenario_(scenario),
      sources_(sources),
      boot_(server.boot().store),
      disks_(GatherDisks(server)),
      junctions_(JunctionStates(sources)),
      imports_(GatherImports(scenario, server)) {}

bool ReportStart::SourceHad(const std::string& path) const {
  constexpr size_t kRoot = 3;  // "C:\"
  if (path.size() < kRoot) return false;
  const auto letter = static_cast<char>(std::toupper(static_cast<unsigned char>(path[0])));
  const bool is_in_source =
      std::any_of(sources_.begin(), sources_.end(), [&path, letter](const SourceVolume& volume) {
        return volume.letter == letter && volume.root->Find(path.substr(kRoot)) != nullptr;
      });
  return is_in_source ||
         std::any_of(imports_.begin(), imports_.end(),
                     [&path](const ImportedVolume& volume) { return HasObject(volume, path); });
}

Report ReportStart::Finish(const RunEnd& run, const std::vector<ToolCall>& tool_calls,
                           Server& server) const {
  const TargetTest source_had = [this](const std::string& path) { return SourceHad(path); };
  return {scenario_.title,
          run,
          GatherBoot(scenario_, boot_, server),
          GatherLetters(scenario_, disks_, tool_calls, LettersOn(server)),
          GatherJunctions(sources_, junctions_, source_had, server),
          GatherDescriptors(sources_, server),
          CompareWithLists(imports_, source_had, server),
          server.shutdown().Scheduled()};
}

bool AreLettersRight(const std::vector<VolumeLetters>& volumes) {
  return std::none_of(volumes.begin(), volumes.end(),
                      [](const VolumeLetters& volume) { return volume.IsWrong(); });
}

bool AreJunctionsRight(const std::vector<JunctionOutcome>& junctions) {
  return std::all_of(junctions.begin(), junctions.end(),
                     [](const JunctionOutcome& junction) { return IsRight(VerdictOn(junction)); });
}

bool AreListsRight(const std::vector<ListOutcome>& lists) {
  return std::all_of(lists.begin(), lists.end(), [](const ListOutcome& list) {
    return list.descriptors && list.descriptors->differences.empty() && list.junctions &&
           AreJunctionsRight(*list.junctions);
  });
}

bool IsRestartRight(const Report& report) {
  const bool is_due = report.run.outcome == RunOutcome::kSucceeded && report.run.wants_restart;
  return !is_due || report.restart.has_value();
}

bool IsRight(const Report& report) {
  return JudgeBoot(report.boot).IsRight() && AreLettersRight(report.letters) &&
         AreJunctionsRight(report.junctions) && report.descriptors.differences.empty() &&
         AreListsRight(report.lists) && IsRestartRight(report);
}

std::string ReportText(const Report& report) {
  return BootReport(report.boot) + LetterReport(report.letters) + JunctionReport(report.junctions) +
         DescriptorReport(report.descriptors) + ListReport(report.lists) +
         RestartReport(report.restart);
}

}  // namespace simulator
