#include "rehearsal/report/report_lists.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/description/scenario.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr size_t kRoot = 3;  // "C:\"

// Calls `take` for each line that is not empty, without its line end.
template <typename Take>
void ForEachLine(std::string_view text, const Take& take) {
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (!line.empty()) take(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

// `"D:\a.txt",32,"O:BAG:SYD:AI(A;ID;FA;;;BA)"`. A line of another form is an object without a path.
ListedObject ParseObject(std::string_view line) {
  const size_t path_end = line.find("\",", 1);
  const size_t sddl = line.find(",\"", path_end == line.npos ? path_end : path_end + 2);
  if (!line.starts_with('"') || sddl == line.npos || !line.ends_with('"')) {
    return {"", std::string(line)};
  }
  line.remove_suffix(1);
  return {std::string(line.substr(1, path_end - 1)), std::string(line.substr(sddl + 2))};
}

const Node* FindOn(const Volume& volume, const std::string& path) {
  const bool is_full = path.size() >= kRoot && path[1] == ':' && path[2] == '\\';
  return is_full ? volume.root->Find(path.substr(kRoot)) : nullptr;
}

// In UTF-8; nothing if there is no such file.
std::optional<std::string> ReadList(const Volume& volume, const std::string& name, Server& server) {
  const auto text = server.files().ReadOn(volume, std::string(kPrepareFolder) + "\\" + name);
  if (!text) return std::nullopt;
  return Utf8FromAnsi(*text, server.system().ansi_code_page);
}

std::optional<char> LetterOfSource(const ScenarioVolume& description, const Volume& volume,
                                   Server& server) {
  if (description.source_letter) return description.source_letter;
  const std::string text = ReadList(volume, "backup_info", server).value_or("");
  const char first = text.empty() ? '\0' : text[0];
  if (first >= 'a' && first <= 'z') return static_cast<char>(first - 'a' + 'A');
  return first >= 'A' && first <= 'Z' ? std::optional(first) : std::nullopt;
}

ImportedVolume ReadLists(char letter, const std::shared_ptr<Volume>& copy, Server& server) {
  ImportedVolume volume{letter, copy, std::nullopt, std::nullopt};
  if (const auto text = ReadList(*copy, AclListName(letter), server)) {
    volume.objects.emplace();
    ForEachLine(*text,
                [&](std::string_view line) { volume.objects->push_back(ParseObject(line)); });
  }
  if (const auto text = ReadList(*copy, JunctionListName(letter), server)) {
    volume.junctions.emplace();
    ForEachLine(*text, [&](std::string_view line) {
      const size_t separator = std::min(line.find(';'), line.size());
      ListedJunction junction{std::string(line.substr(0, separator)),
                              std::string(line.substr(std::min(separator + 1, line.size())))};
      junction.before = StateOf(*copy, junction.path, junction.target);
      volume.junctions->push_back(std::move(junction));
    });
  }
  return volume;
}

// The parts that the descriptor of a list has.
SECURITY_INFORMATION PartsOf(const Descriptor& descriptor) {
  SECURITY_INFORMATION parts = 0;
  if (descriptor.owner) parts |= OWNER_SECURITY_INFORMATION;
  if (descriptor.group) parts |= GROUP_SECURITY_INFORMATION;
  if ((descriptor.control & SE_DACL_PRESENT) != 0) parts |= DACL_SECURITY_INFORMATION;
  if ((descriptor.control & SE_SACL_PRESENT) != 0) parts |= SACL_SECURITY_INFORMATION;
  return parts;
}

DescriptorOutcome CompareObjects(const std::vector<ListedObject>& objects, const Volume& volume,
                                 const AccountDomains& domains) {
  DescriptorOutcome outcome;
  for (const ListedObject& object : objects) {
    ++outcome.objects;
    if (object.path.size() == kRoot) ++outcome.roots;
    Descriptor wanted;
    const bool is_valid = ParseSddl(object.sddl, domains, &wanted) == ERROR_SUCCESS;
    const SECURITY_INFORMATION parts = is_valid ? PartsOf(wanted) : kAllParts;
    const std::string text = is_valid ? SddlText(wanted, domains, parts) : object.sddl;
    const Node* const node = FindOn(volume, object.path);
    const std::string found = node == nullptr ? "" : SddlText(*node->security, domains, parts);
    if (is_valid && found == text) continue;
    outcome.differences.push_back({object.path, text, found});
    CountLost(wanted, node == nullptr ? nullptr : node->security.get(), outcome.lost_entries);
  }
  return outcome;
}

}  // namespace

std::vector<ImportedVolume> GatherImports(const Scenario& scenario, Server& server) {
  std::vector<ImportedVolume> volumes;
  for (size_t d = 0; d < scenario.disks.size(); ++d) {
    const std::vector<ScenarioPartition>& partitions = scenario.disks[d].partitions;
    for (size_t p = 0; p < partitions.size(); ++p) {
      const std::optional<ScenarioVolume>& description = partitions[p].volume;
      if (!description || description->import.empty() || description->source) continue;
      const std::shared_ptr<Volume>& copy = server.disks().at(d).partitions.at(p).volume;
      if (copy->root->Child(kPrepareFolder) == nullptr) continue;
      const std::optional<char> letter = LetterOfSource(*description, *copy, server);
      if (letter) volumes.push_back(ReadLists(*letter, copy, server));
    }
  }
  return volumes;
}

std::vector<ListOutcome> CompareWithLists(const std::vector<ImportedVolume>& volumes,
                                          const TargetTest& source_had, Server& server) {
  std::vector<ListOutcome> outcomes;
  for (const ImportedVolume& volume : volumes) {
    ListOutcome outcome{volume.letter, std::nullopt, std::nullopt};
    if (volume.objects) {
      outcome.descriptors =
          CompareObjects(*volume.objects, *volume.copy, server.security().domains());
    }
    if (volume.junctions) {
      outcome.junctions.emplace();
      for (const ListedJunction& junction : *volume.junctions) {
        outcome.junctions->push_back({junction.before,
                                      StateOf(*volume.copy, junction.path, junction.target),
                                      server.files().Exists(junction.target), junction.path,
                                      junction.target, source_had(junction.target)});
      }
    }
    outcomes.push_back(std::move(outcome));
  }
  return outcomes;
}

std::string ListReport(const std::vector<ListOutcome>& outcomes) {
  constexpr char kStandard[] = "as its own list says";
  constexpr char kMissing[] = ": nothing to compare, its list is missing\n";
  std::string report;
  for (const ListOutcome& outcome : outcomes) {
    const std::string letter = std::string(" of ") + outcome.letter;
    report += outcome.junctions
                  ? JunctionReport(*outcome.junctions, "junctions" + letter, kStandard)
                  : "junctions" + letter + kMissing;
    report += outcome.descriptors
                  ? DescriptorReport(*outcome.descriptors, "descriptors" + letter, kStandard)
                  : "descriptors" + letter + kMissing;
  }
  return report;
}

}  // namespace simulator
