// The report of a rehearsal on the drive letters.
#ifndef REHEARSAL_REPORT_REPORT_LETTERS_H_
#define REHEARSAL_REPORT_REPORT_LETTERS_H_

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "rehearsal/report/letter_reasons.h"

namespace simulator {

struct Scenario;

// A volume that had a letter on the source server, or that holds such a volume's letter.
struct VolumeLetters {
  int disk = 0;
  int partition = 0;
  std::string label;
  uint64_t size = 0;           // bytes
  std::optional<char> source;  // none if the source had no such volume
  std::optional<char> before;
  std::optional<char> after;
  LetterReason reason = {};  // of a letter that is wrong

  bool IsWrong() const { return source && after != source; }
};

// Returns the letter that a volume has now.
using LetterOf = std::function<std::optional<char>(int disk, int partition)>;

// Returns the scenario's volumes that have a source letter, and those that hold the letter of one
// that is wrong, in the order of the disks. `before` is the result of GatherDisks before the run,
// `tool_calls` are those of the run.
std::vector<VolumeLetters> GatherLetters(const Scenario& scenario,
                                         const std::vector<DiskFacts>& before,
                                         const std::vector<ToolCall>& tool_calls,
                                         const LetterOf& letter_of);

// Returns the letters of the volumes on the disks of a server in memory.
LetterOf LettersOn(Server& server);

// Returns a table of the volumes and a closing line "letters: 4 of 5 right". A letter is right if
// it is the source's letter after the run; other rows end with "<-- wrong: " and the reason.
// Without a volume that had a letter the closing line is "letters: nothing to compare". Lines end
// with "\n".
std::string LetterReport(const std::vector<VolumeLetters>& volumes);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_LETTERS_H_
