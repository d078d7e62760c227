#include "rehearsal/report/report_junctions.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string_view>

#include "rehearsal/description/source_tree.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

// By JunctionVerdict; nothing for a junction that was made.
constexpr std::string_view kReasons[] = {
    "",         "target missing",   "target lost", "already there", "wrong target",
    "not made", "not in code page "};

void VisitJunctions(const std::vector<SourceVolume>& sources,
                    const std::function<void(const SourceVolume& volume, const std::string& path,
                                             const std::string& target)>& visit) {
  for (const SourceVolume& volume : sources) {
    VisitTree(volume.letter, *volume.root, [&](const std::string& path, const Node& node) {
      const std::string target = JunctionTargetOf(node);
      if (!target.empty()) visit(volume, path, target);
    });
  }
}

}  // namespace

JunctionVerdict VerdictOn(const JunctionOutcome& junction) {
  if (junction.after == JunctionState::kRight) {
    return junction.before == JunctionState::kRight ? JunctionVerdict::kAlreadyThere
                                                    : JunctionVerdict::kMade;
  }
  if (junction.after == JunctionState::kElsewhere) return JunctionVerdict::kWrongTarget;
  if (junction.lacking_code_page != 0) return JunctionVerdict::kNotInCodePage;
  if (junction.has_target) return JunctionVerdict::kNotMade;
  return junction.source_had_target ? JunctionVerdict::kTargetLost
                                    : JunctionVerdict::kTargetMissing;
}

bool IsRight(JunctionVerdict verdict) {
  return verdict == JunctionVerdict::kMade || verdict == JunctionVerdict::kAlreadyThere ||
         verdict == JunctionVerdict::kTargetMissing;
}

JunctionState StateOf(const Volume& copy, const std::string& path, const std::string& target) {
  constexpr size_t kRoot = 3;  // "C:\"
  if (path.size() < kRoot) return JunctionState::kNone;
  const Node* const node = copy.root->Find(path.substr(kRoot));
  const std::string found = node == nullptr ? "" : JunctionTargetOf(*node);
  if (found.empty()) return JunctionState::kNone;
  return NameKey(found) == NameKey(target) ? JunctionState::kRight : JunctionState::kElsewhere;
}

std::vector<JunctionState> JunctionStates(const std::vector<SourceVolume>& sources) {
  std::vector<JunctionState> states;
  VisitJunctions(sources, [&states](const SourceVolume& volume, const std::string& path,
                                    const std::string& target) {
    states.push_back(StateOf(*volume.copy, path, target));
  });
  return states;
}

std::vector<JunctionOutcome> GatherJunctions(const std::vector<SourceVolume>& sources,
                                             const std::vector<JunctionState>& before,
                                             const TargetTest& source_had, Server& server) {
  std::vector<JunctionOutcome> junctions;
  VisitJunctions(
      sources, [&](const SourceVolume& volume, const std::string& path, const std::string& target) {
        const UINT code_page = server.system().ansi_code_page;
        const bool is_in_list = IsInCodePage(path, code_page) && IsInCodePage(target, code_page);
        junctions.push_back({before.at(junctions.size()), StateOf(*volume.copy, path, target),
                             server.files().Exists(target), path, target, source_had(target),
                             is_in_list ? 0 : code_page});
      });
  return junctions;
}

std::string JunctionReport(const std::vector<JunctionOutcome>& junctions,
                           const std::string& subject, const std::string& standard) {
  UINT code_page = 0;
  std::array<size_t, std::size(kReasons)> counts{};
  for (const JunctionOutcome& junction : junctions) {
    code_page = std::max(code_page, junction.lacking_code_page);
    ++counts.at(static_cast<size_t>(VerdictOn(junction)));
  }
  std::string reasons;
  for (size_t i = 1; i < counts.size(); ++i) {
    if (counts.at(i) == 0) continue;
    reasons += (reasons.empty() ? " (" : ", ") + std::to_string(counts.at(i)) + " ";
    reasons += kReasons[i];
    if (i == static_cast<size_t>(JunctionVerdict::kNotInCodePage))
      reasons += std::to_string(code_page);
  }
  if (!reasons.empty()) reasons += ")";
  return subject + ": " + std::to_string(counts[0]) + " of " + std::to_string(junctions.size()) +
         (standard.empty() ? "" : " " + standard) + reasons + "\n";
}

}  // namespace simulator
