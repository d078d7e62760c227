#include "rehearsal/report/report_junctions.h"

#include <array>
#include <functional>
#include <string_view>

#include "rehearsal/description/source_tree.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

enum class Reason { kTargetMissing, kAlreadyThere, kWrongTarget, kNotMade };
constexpr std::string_view kReasons[] = {"target missing", "already there", "wrong target",
                                         "not made"};

bool IsMade(const JunctionOutcome& junction) {
  return junction.before != JunctionState::kRight && junction.after == JunctionState::kRight;
}

Reason ReasonOf(const JunctionOutcome& junction) {
  if (junction.after == JunctionState::kRight) return Reason::kAlreadyThere;
  if (junction.after == JunctionState::kElsewhere) return Reason::kWrongTarget;
  return junction.has_target ? Reason::kNotMade : Reason::kTargetMissing;
}

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

JunctionState StateOf(const SourceVolume& volume, const std::string& path,
                      const std::string& target) {
  constexpr size_t kRoot = 3;  // "C:\"
  const Node* const node = volume.copy->root->Find(path.substr(kRoot));
  const std::string found = node == nullptr ? "" : JunctionTargetOf(*node);
  if (found.empty()) return JunctionState::kNone;
  return NameKey(found) == NameKey(target) ? JunctionState::kRight : JunctionState::kElsewhere;
}

}  // namespace

std::vector<JunctionState> JunctionStates(const std::vector<SourceVolume>& sources) {
  std::vector<JunctionState> states;
  VisitJunctions(sources, [&states](const SourceVolume& volume, const std::string& path,
                                    const std::string& target) {
    states.push_back(StateOf(volume, path, target));
  });
  return states;
}

std::vector<JunctionOutcome> GatherJunctions(const std::vector<SourceVolume>& sources,
                                             const std::vector<JunctionState>& before,
                                             Server& server) {
  std::vector<JunctionOutcome> junctions;
  VisitJunctions(
      sources, [&](const SourceVolume& volume, const std::string& path, const std::string& target) {
        junctions.push_back({before.at(junctions.size()), StateOf(volume, path, target),
                             server.files().Exists(target)});
      });
  return junctions;
}

std::string JunctionReport(const std::vector<JunctionOutcome>& junctions) {
  size_t made = 0;
  std::array<size_t, std::size(kReasons)> others{};
  for (const JunctionOutcome& junction : junctions) {
    ++(IsMade(junction) ? made : others.at(static_cast<size_t>(ReasonOf(junction))));
  }
  std::string reasons;
  for (size_t i = 0; i < others.size(); ++i) {
    if (others.at(i) == 0) continue;
    reasons += (reasons.empty() ? " (" : ", ") + std::to_string(others.at(i)) + " ";
    reasons += kReasons[i];
  }
  if (!reasons.empty()) reasons += ")";
  return "junctions: " + std::to_string(made) + " of " + std::to_string(junctions.size()) +
         reasons + "\n";
}

}  // namespace simulator
