#include "rehearsal/report/report_descriptors.h"

#include <algorithm>
#include <map>

#include "rehearsal/description/source_tree.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sacl_entries.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr size_t kMostShown = 10;

// Texts of descriptors; many nodes share one.
class Texts {
 public:
  explicit Texts(const AccountDomains& domains) : domains_(domains) {}

  const std::string& Of(const std::shared_ptr<const Descriptor>& descriptor) {
    const auto [found, is_new] = texts_.try_emplace(descriptor);
    if (is_new) found->second = SddlText(*descriptor, domains_);
    return found->second;
  }

 private:
  const AccountDomains& domains_;
  std::map<std::shared_ptr<const Descriptor>, std::string> texts_;
};

// "6,000".
std::string WithCommas(size_t number) {
  std::string text = std::to_string(number);
  for (size_t end = text.size(); end > 3;) {
    end -= 3;
    text.insert(end, ",");
  }
  return text;
}

bool HasEntry(const Descriptor* found, const Ace& wanted) {
  if (found == nullptr || !found->sacl) return false;
  const std::vector<Ace>& aces = found->sacl->aces;
  return std::find(aces.begin(), aces.end(), wanted) != aces.end();
}

// "; cannot come back: 1 mandatory label"; empty if nothing is lost.
std::string LostText(const DescriptorOutcome& outcome) {
  std::string text;
  const auto add = [&text](size_t count, const std::string& one, const std::string& several) {
    if (count == 0) return;
    text += text.empty() ? "; cannot come back: " : ", ";
    text += WithCommas(count) + " " + (count == 1 ? one : several);
  };
  const LostEntries& lost = outcome.lost_entries;
  add(lost.labels, "mandatory label", "mandatory labels");
  add(lost.attributes, "resource attribute", "resource attributes");
  add(lost.policies, "central policy", "central policies");
  const std::string reason = "not in code page " + std::to_string(outcome.code_page);
  add(CountUnnamed(outcome), reason, reason);
  return text;
}

}  // namespace

size_t CountUnnamed(const DescriptorOutcome& outcome) {
  return static_cast<size_t>(
      std::count_if(outcome.differences.begin(), outcome.differences.end(),
                    [](const DescriptorDifference& each) { return each.is_unnamed; }));
}

void CountLost(const Descriptor& wanted, const Descriptor* found, LostEntries& lost) {
  if (!wanted.sacl) return;
  for (const Ace& ace : wanted.sacl->aces) {
    if (!HasOwnBit(ace) || HasEntry(found, ace)) continue;
    if (ace.type == SYSTEM_MANDATORY_LABEL_ACE_TYPE) ++lost.labels;
    if (ace.type == SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE) ++lost.attributes;
    if (ace.type == SYSTEM_SCOPED_POLICY_ID_ACE_TYPE) ++lost.policies;
  }
}

DescriptorOutcome GatherDescriptors(const std::vector<SourceVolume>& sources, Server& server) {
  constexpr size_t kRoot = 3;  // "C:\"
  DescriptorOutcome outcome;
  outcome.code_page = server.system().ansi_code_page;
  Texts texts(server.security().domains());
  for (const SourceVolume& volume : sources) {
    VisitTree(volume.letter, *volume.root, [&](const std::string& path, const Node& node) {
      ++outcome.objects;
      if (path.size() == kRoot) ++outcome.roots;
      const std::string& wanted = texts.Of(node.security);
      const Node* const found = volume.copy->root->Find(path.substr(kRoot));
      const std::string text = found == nullptr ? "" : texts.Of(found->security);
      if (text == wanted) return;
      outcome.differences.push_back({path, wanted, text, !IsInCodePage(path, outcome.code_page)});
      CountLost(*node.security, found == nullptr ? nullptr : found->security.get(),
                outcome.lost_entries);
    });
  }
  return outcome;
}

std::string DescriptorReport(const DescriptorOutcome& outcome, const std::string& subject,
                             const std::string& standard) {
  const size_t different = outcome.differences.size();
  if (outcome.objects == outcome.roots && different == 0) {
    return subject + ": nothing " + (outcome.objects == 0 ? "" : "but roots ") + "to compare\n";
  }
  std::string report = subject + ": " + WithCommas(outcome.objects - different) + " of " +
                       WithCommas(outcome.objects) + " " + standard + LostText(outcome) + "\n";
  const size_t shown = std::min(different, kMostShown);
  for (size_t i = 0; i < shown; ++i) {
    const DescriptorDifference& difference = outcome.differences[i];
    report += "  " + difference.path + "\n";
    report += "    wanted  " + difference.wanted + "\n";
    report +=
        "    found   " + (difference.found.empty() ? "nothing there" : difference.found) + "\n";
  }
  if (different > shown) report += "  and " + WithCommas(different - shown) + " more\n";
  return report;
}

}  // namespace simulator
