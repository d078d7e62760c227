// What a rehearsal tells about the drive letters.
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

// The scenario's volumes with a source letter, in the order of the disks. `after` is what the
// server, built from the scenario, shows now.
std::vector<VolumeLetters> GatherLetters(const Scenario& scenario, Server& server);

// A table of the volumes and a closing line "letters: 4 of 5 right". Right means that the letter
// after the run is the source's; other rows end with "<-- wrong". Lines end with "\n".
std::string LetterReport(const std::vector<VolumeLetters>& volumes);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_LETTERS_H_
