// The report of a rehearsal on the boot configuration.
#ifndef REHEARSAL_REPORT_REPORT_BOOT_H_
#define REHEARSAL_REPORT_REPORT_BOOT_H_

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

class Server;
struct Disk;
struct Scenario;

// What a run did to the boot configuration.
struct BootChange {
  BootStore before;  // the BCD store in use
  BootStore after;
  std::string system_partition;  // that the server boots from, in words
  std::string unused_drive;      // "C:", a drive with a BCD store that is not in use; empty if none
  bool has_bcdboot = true;
};

// `before` is the store in use before the run.
BootChange GatherBoot(const Scenario& scenario, BootStore before, Server& server);
// For a server whose disks and boot configuration are those after the run.
BootChange GatherBoot(const Scenario& scenario, BootStore before, const Boot& after,
                      const std::vector<Disk>& disks,
                      const std::function<std::optional<char>(const Volume&)>& letter_of);

enum class BootVerdict {
  kNothingToDo,  // the store in use was in order and is unchanged
  kRepaired,     // it was not in order and now is
  kNotRepaired,  // it is not in order, or it was in order and has changed
};

// A store is in order if its boot manager displays only its default entry, and the locale of the
// boot manager is that of the loader unless the loader's locale is English or missing. A store
// without entries is in order, too.
struct BootOutcome {
  BootVerdict verdict = BootVerdict::kNothingToDo;
  std::vector<std::string> wrong;  // clauses; empty unless not repaired
  std::string cause;               // why the locale is wrong, a clause; empty if only the log tells
  std::string remedy;              // what the operator can do; empty if the cause is

  bool IsRight() const { return verdict != BootVerdict::kNotRepaired; }
};

BootOutcome JudgeBoot(const BootChange& change);

// Returns a table of the entries of both stores, with the state of each entry before and after the
// run, and the outcome:
//
//   boot: not repaired: WRONG; WRONG: CAUSE
//     REMEDY
//
// or "boot: nothing to do", or "boot: repaired". A store that is not in use is mentioned. Lines end
// with "\n".
std::string BootReport(const BootChange& change);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_BOOT_H_
