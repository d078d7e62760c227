#include "rehearsal/report/letter_reasons.h"

#include <algorithm>

#include "rehearsal/description/prepare_folder.h"
#include "simulator/tools/diskpart_parts.h"

namespace simulator {
namespace {

constexpr char kSystemLetter = 'C';

std::string DiskName(int disk) { return "disk " + std::to_string(disk); }

const DiskFacts& At(const std::vector<DiskFacts>& disks, int disk) {
  return disks.at(static_cast<size_t>(disk));
}

std::string SelectDisk(int disk) { return "sel disk " + std::to_string(disk) + "\n"; }

std::string SelectPartition(int disk, int partition) {
  return SelectDisk(disk) + "sel part " + std::to_string(partition) + "\n";
}

// What became of the first script that is `script` or, with `is_start`, begins with it.
const ToolCall* FindCall(const std::vector<ToolCall>& calls, const std::string& script,
                         bool is_start = false) {
  const auto found = std::find_if(calls.begin(), calls.end(), [&](const ToolCall& call) {
    return call.name == "diskpart" &&
           (is_start ? call.script.starts_with(script) : call.script == script);
  });
  return found == calls.end() ? nullptr : &*found;
}

bool Failed(const ToolCall* call) { return call != nullptr && call->exit_code != 0; }

bool AnyFailed(const std::vector<ToolCall>& calls, const std::vector<std::string>& scripts) {
  return std::any_of(calls.begin(), calls.end(), [&scripts](const ToolCall& call) {
    return Failed(&call) && std::find(scripts.begin(), scripts.end(), call.script) != scripts.end();
  });
}

LetterReason ToolFailed(const std::string& what, const ToolCall& call) {
  return {LetterCause::kToolFailed,
          "diskpart could not " + what + ", exit code " + std::to_string(call.exit_code)};
}

// Where the stage ended before the last disk, and why: "has no valid backup_info".
struct StageEnd {
  int disk = 0;
  std::string why;
};

std::optional<StageEnd> FindEnd(const std::vector<DiskFacts>& disks,
                                const std::vector<ToolCall>& calls) {
  for (int number = 0; number < static_cast<int>(disks.size()); ++number) {
    const DiskFacts& disk = At(disks, number);
    // A disk that the tool cannot show is left out.
    if (!disk.is_listed || Failed(FindCall(calls, SelectDisk(number) + "detail disk"))) continue;
    if (!disk.online) return StageEnd{number, "is offline"};
    if (!disk.has_volume) return StageEnd{number, "has no volume whose size is shown in GB"};
    if (!disk.letter && AnyFailed(calls, {SelectPartition(number, disk.partition) + "assign\n",
                                          SelectDisk(number) + "detail disk"})) {
      return StageEnd{number, "could be given no letter by diskpart"};
    }
    if (!disk.recorded) return StageEnd{number, "has no valid backup_info"};
  }
  return std::nullopt;
}

// Of a volume on a disk at which, or before which, the stage ended.
bool IsLeftByEnd(const WrongLetter& letter, const StageEnd& end) {
  const bool was_removed = letter.disk < end.disk && !letter.after;
  return letter.disk >= end.disk || was_removed;
}

// What the program decides about a disk that it looks at.
std::optional<LetterReason> ReasonOnDisk(const WrongLetter& letter, const DiskFacts& disk) {
  const bool is_looked_at =
      disk.letter ? disk.letter == letter.before : disk.partition == letter.partition;
  if (!is_looked_at) {
    return LetterReason{LetterCause::kOtherVolume,
                        "the program looks at another volume of its disk"};
  }
  if (disk.letter == kSystemLetter) {
    return LetterReason{LetterCause::kSystemVolume, "the system volume keeps its letter"};
  }
  if (disk.recorded != letter.source) {
    return LetterReason{LetterCause::kOtherRecord,
                        std::string("its backup_info names ") + disk.recorded.value_or('-') + ":"};
  }
  if (disk.dynamic) {
    return LetterReason{LetterCause::kDynamicDisk,
                        "on a dynamic disk, diskpart selects no volume by a partition"};
  }
  if (disk.partition != letter.partition) {
    return LetterReason{LetterCause::kOtherPartition,
                        "the program changes the letter of partition " +
                            std::to_string(disk.partition) + " of its disk"};
  }
  return std::nullopt;
}

}  // namespace

LetterReason ReasonOf(const WrongLetter& letter, const std::vector<DiskFacts>& disks,
                      const std::vector<ToolCall>& tool_calls) {
  const DiskFacts& disk = At(disks, letter.disk);
  if (!disk.online) return {LetterCause::kDiskOffline, DiskName(letter.disk) + " is offline"};
  if (!disk.is_listed) {
    return {LetterCause::kSizeNotInGB,
            "the size of " + DiskName(letter.disk) + " is not shown in GB: \"" + disk.size + "\""};
  }
  const ToolCall* const list = FindCall(tool_calls, "list disk", true);
  if (list == nullptr) return {LetterCause::kNotReached, "the run did not come to the letters"};
  if (Failed(list)) return ToolFailed("list the disks", *list);
  const ToolCall* const detail = FindCall(tool_calls, SelectDisk(letter.disk) + "detail disk");
  if (Failed(detail)) return ToolFailed("show " + DiskName(letter.disk), *detail);
  const std::optional<StageEnd> end = FindEnd(disks, tool_calls);
  if (end && IsLeftByEnd(letter, *end)) {
    return {LetterCause::kStageEnded,
            "the work on letters ended at " + DiskName(end->disk) + ", which " + end->why};
  }
  if (const auto reason = ReasonOnDisk(letter, disk)) return *reason;
  const std::string script = SelectPartition(letter.disk, disk.partition);
  const ToolCall* const remove = FindCall(tool_calls, script + "remove\n");
  if (Failed(remove)) return ToolFailed("remove its letter", *remove);
  if (!letter.holder.empty()) {
    return {LetterCause::kTaken, std::string(1, letter.source) + ": is taken by " + letter.holder};
  }
  const ToolCall* const assign = FindCall(tool_calls, script + "assign letter=", true);
  if (Failed(assign)) return ToolFailed("assign the letter", *assign);
  return {LetterCause::kUnknown, "see the log"};
}

std::string CauseName(LetterCause cause) {
  switch (cause) {
    case LetterCause::kNone:
      return "none";
    case LetterCause::kDiskOffline:
      return "disk_offline";
    case LetterCause::kSizeNotInGB:
      return "size_not_in_gb";
    case LetterCause::kNotReached:
      return "not_reached";
    case LetterCause::kToolFailed:
      return "tool_failed";
    case LetterCause::kStageEnded:
      return "stage_ended";
    case LetterCause::kOtherVolume:
      return "other_volume";
    case LetterCause::kSystemVolume:
      return "system_volume";
    case LetterCause::kOtherRecord:
      return "other_record";
    case LetterCause::kOtherPartition:
      return "other_partition";
    case LetterCause::kDynamicDisk:
      return "dynamic_disk";
    case LetterCause::kTaken:
      return "taken";
    case LetterCause::kUnknown:
      break;
  }
  return "unknown";
}

}  // namespace simulator
