#include "rehearsal/report/report_letters.h"

#include <algorithm>
#include <array>

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

}  // namespace

std::vector<VolumeLetters> GatherLetters(const Scenario& scenario, Server& server) {
  std::vector<VolumeLetters> volumes;
  for (size_t d = 0; d < scenario.disks.size(); ++d) {
    const ScenarioDisk& disk = scenario.disks[d];
    for (size_t p = 0; p < disk.partitions.size(); ++p) {
      const ScenarioPartition& partition = disk.partitions[p];
      if (!partition.volume || !partition.volume->source_letter) continue;
      const Disk& built = server.disks().at(d);
      const Volume& volume = *built.partitions.at(p).volume;
      volumes.push_back({built.number, partition.number, partition.volume->label, partition.size,
                         *partition.volume->source_letter, partition.volume->letter,
                         server.files().LetterOf(volume)});
    }
  }
  return volumes;
}

std::string LetterReport(const std::vector<VolumeLetters>& volumes) {
  std::vector<Row> rows = {{"disk", "partition", "label", "size", "source", "before", "after"}};
  size_t right = 0;
  for (const VolumeLetters& volume : volumes) {
    if (volume.after == volume.source) ++right;
    rows.push_back({std::to_string(volume.disk), std::to_string(volume.partition), volume.label,
                    SizeText(volume.size), LetterText(volume.source), LetterText(volume.before),
                    LetterText(volume.after)});
  }
  std::array<size_t, kColumns> widths{};
  for (const Row& row : rows) {
    for (size_t i = 0; i < kColumns; ++i) widths[i] = std::max(widths[i], CharacterCount(row[i]));
  }
  std::string text = WithoutFinalBlanks(Line(rows[0], widths)) + "\n";
  for (size_t i = 0; i < volumes.size(); ++i) {
    const std::string line = Line(rows[i + 1], widths);
    const bool wrong = volumes[i].after != volumes[i].source;
    text += (wrong ? line + "  <-- wrong" : WithoutFinalBlanks(line)) + "\n";
  }
  return text + "letters: " + std::to_string(right) + " of " + std::to_string(volumes.size()) +
         " right\n";
}

}  // namespace simulator
