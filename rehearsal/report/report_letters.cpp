#include "rehearsal/report/report_letters.h"

#include <algorithm>
#include <array>

#include "rehearsal/description/scenario.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/tools/columns.h"

namespace simulator {
namespace {

constexpr size_t kColumns = 7;
constexpr size_t kSizeColumn = 3;
using Row = std::array<std::string, kColumns>;

std::string LetterText(std::optional<char> letter) {
  return letter ? std::string(1, *letter) + ":" : "-";
}

std::string Line(const Row& row, const std::array<size_t, kColumns>& widths) {
  std::string line;
  for (size_t i = 0; i < kColumns; ++i) {
    line += "  ";
    line += i == kSizeColumn ? RightColumn(row[i], widths[i]) : LeftColumn(row[i], widths[i]);
  }
  return line;
}

std::string WithoutFinalBlanks(std::string line) {
  line.resize(line.find_last_not_of(' ') + 1);
  return line;
}

std::vector<VolumeLetters> AllVolumes(const Scenario& scenario, const LetterOf& letter_of) {
  std::vector<VolumeLetters> volumes;
  for (size_t d = 0; d < scenario.disks.size(); ++d) {
    const int disk = static_cast<int>(d);
    for (const ScenarioPartition& partition : scenario.disks[d].partitions) {
      if (!partition.volume) continue;
      volumes.push_back({disk, partition.number, partition.volume->label, partition.size,
                         partition.volume->source_letter, partition.volume->letter,
                         letter_of(disk, partition.number)});
    }
  }
  return volumes;
}

// Null if no volume has the letter now.
const VolumeLetters* HolderOf(char letter, const std::vector<VolumeLetters>& volumes) {
  const auto found =
      std::find_if(volumes.begin(), volumes.end(),
                   [letter](const VolumeLetters& volume) { return volume.after == letter; });
  return found == volumes.end() ? nullptr : &*found;
}

std::string NameOf(const VolumeLetters& volume) {
  const std::string place =
      "disk " + std::to_string(volume.disk) + ", partition " + std::to_string(volume.partition);
  return volume.label.empty() ? "a volume without a label (" + place + ")"
                              : volume.label + " (" + place + ")";
}

}  // namespace

std::vector<VolumeLetters> GatherLetters(const Scenario& scenario,
                                         const std::vector<DiskFacts>& before,
                                         const std::vector<ToolCall>& tool_calls,
                                         const LetterOf& letter_of) {
  std::vector<VolumeLetters> all = AllVolumes(scenario, letter_of);
  for (VolumeLetters& volume : all) {
    if (!volume.IsWrong()) continue;
    const VolumeLetters* const holder = HolderOf(*volume.source, all);
    volume.reason = ReasonOf({volume.disk, volume.partition, *volume.source, volume.before,
                              volume.after, holder == nullptr ? "" : NameOf(*holder)},
                             before, tool_calls);
  }
  const std::vector<VolumeLetters> wanted = all;
  std::erase_if(all, [&wanted](const VolumeLetters& volume) {
    const bool is_holder =
        volume.after && std::any_of(wanted.begin(), wanted.end(), [&](const VolumeLetters& other) {
          return other.IsWrong() && other.source == volume.after;
        });
    return !volume.source && !is_holder;
  });
  return all;
}

LetterOf LettersOn(Server& server) {
  return [&server](int disk, int partition) -> std::optional<char> {
    for (const Partition& each : server.disks().at(static_cast<size_t>(disk)).partitions) {
      if (each.number == partition && each.volume) return server.files().LetterOf(*each.volume);
    }
    return std::nullopt;
  };
}

std::string LetterReport(const std::vector<VolumeLetters>& volumes) {
  std::vector<Row> rows = {{"disk", "partition", "label", "size", "source", "before", "after"}};
  size_t right = 0;
  size_t with_source = 0;
  for (const VolumeLetters& volume : volumes) {
    if (volume.source) ++with_source;
    if (volume.source && !volume.IsWrong()) ++right;
    rows.push_back({std::to_string(volume.disk), std::to_string(volume.partition), volume.label,
                    SizeText(volume.size), LetterText(volume.source), LetterText(volume.before),
                    LetterText(volume.after)});
  }
  if (with_source == 0) return "letters: nothing to compare\n";
  std::array<size_t, kColumns> widths{};
  for (const Row& row : rows) {
    for (size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], CharacterCount(row[i]));
  }
  std::string text = WithoutFinalBlanks(Line(rows[0], widths)) + "\n";
  for (size_t i = 0; i < volumes.size(); ++i) {
    const std::string line = Line(rows[i + 1], widths);
    text += volumes[i].IsWrong() ? line + "  <-- wrong: " + volumes[i].reason.text
                                 : WithoutFinalBlanks(line);
    text += "\n";
  }
  return text + "letters: " + std::to_string(right) + " of " + std::to_string(with_source) +
         " right\n";
}

}  // namespace simulator
