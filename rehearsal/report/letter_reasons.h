// Why a volume does not have the letter that it had on the source server, derived from what the
// program found on the disks and what the disk tool did for it.
#ifndef REHEARSAL_REPORT_LETTER_REASONS_H_
#define REHEARSAL_REPORT_LETTER_REASONS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulator/tools/tools.h"

namespace simulator {

class Server;

// A disk as the program finds it before it changes letters. Letters are in upper case.
struct DiskFacts {
  bool online = true;
  bool dynamic = false;
  bool is_listed = false;        // the disk tool shows its size in GB
  std::string size;              // as the disk tool shows it
  int partition = 1;             // whose letter the program changes
  bool has_volume = false;       // the disk tool shows one in GB
  std::optional<char> letter;    // the one that the program reads
  std::optional<char> recorded;  // in the backup_info that the program reads
};

// Returns the disks of a server on which the program has not run yet.
std::vector<DiskFacts> GatherDisks(Server& server);

enum class LetterCause {
  kNone,            // the letter is right
  kDiskOffline,     //
  kSizeNotInGB,     // the program does not see a disk whose size is shown in another unit
  kNotReached,      // the run did not come to the letters
  kToolFailed,      //
  kStageEnded,      // at this disk or at one before it
  kOtherVolume,     // the program looks at another volume of the disk
  kSystemVolume,    // whose letter never changes
  kOtherRecord,     // backup_info names another letter
  kOtherPartition,  // the program changes the letter of another partition of the disk
  kDynamicDisk,     // whose volumes are not selected by a partition
  kTaken,           // by another volume
  kUnknown,
};

struct LetterReason {
  LetterCause cause = LetterCause::kNone;
  std::string text = {};  // "E: is taken by Cloud Tools (disk 1, partition 2)"
};

// A volume whose letter is wrong. Letters are in upper case.
struct WrongLetter {
  int disk = 0;
  int partition = 0;
  char source = 'C';
  std::optional<char> before;
  std::optional<char> after;
  std::string holder;  // of the source's letter: "Cloud Tools (disk 1, partition 2)"; may be empty
};

// `disks` is the result of GatherDisks before the run; `tool_calls` are those of the run, in order.
LetterReason ReasonOf(const WrongLetter& letter, const std::vector<DiskFacts>& disks,
                      const std::vector<ToolCall>& tool_calls);

// Returns the name of a cause, as a report for machines has it: "disk_offline".
std::string CauseName(LetterCause cause);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_LETTER_REASONS_H_
