// The report of a rehearsal on the drive letters.
#ifndef REHEARSAL_REPORT_REPORT_LETTERS_H_
#define REHEARSAL_REPORT_REPORT_LETTERS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "rehearsal/description/scenario.h"

namespace simulator {

class Server;

// A volume that had a letter on the source server.
struct VolumeLetters {
  int disk = 0;
  int partition = 0;
  std::string label;
  uint64_t size = 0;  // bytes
  char source = 'C';
  std::optional<char> before;
  std::optional<char> after;
};

// Returns the scenario's volumes that have a source letter, in the order of the disks. `after` is
// the current letter on the server, which was built from the scenario.
std::vector<VolumeLetters> GatherLetters(const Scenario& scenario, Server& server);

// Returns a table of the volumes and a closing line "letters: 4 of 5 right". A letter is right if
// it is the source's letter after the run; other rows end with "<-- wrong". Lines end with "\n".
std::string LetterReport(const std::vector<VolumeLetters>& volumes);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_LETTERS_H_
