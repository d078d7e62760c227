// The report of a rehearsal on volumes with an imported prepare folder. There is no source to
// compare them with: they are compared with what their own backup files say.
#ifndef REHEARSAL_REPORT_REPORT_LISTS_H_
#define REHEARSAL_REPORT_REPORT_LISTS_H_

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "rehearsal/report/report_descriptors.h"
#include "rehearsal/report/report_junctions.h"

namespace simulator {

class Server;
struct Scenario;
struct Volume;

// An object of an ACL backup file.
struct ListedObject {
  std::string path;  // "D:\a.txt"
  std::string sddl;
};

// A junction of a junction backup file.
struct ListedJunction {
  std::string path;
  std::string target;
  JunctionState before = JunctionState::kNone;
};

struct ImportedVolume {
  char letter = 'C';             // on the source server, upper case
  std::shared_ptr<Volume> copy;  // on the migrated server
  // Nothing if there is no such backup file.
  std::optional<std::vector<ListedObject>> objects;
  std::optional<std::vector<ListedJunction>> junctions;
};

// Returns the volumes of a server before the run that have a prepare folder which was imported, and
// no source. Their letter is the source letter or else the one in backup_info; a volume without
// both is left out.
std::vector<ImportedVolume> GatherImports(const Scenario& scenario, Server& server);

struct ListOutcome {
  char letter = 'C';
  // Nothing if there is no such backup file.
  std::optional<DescriptorOutcome> descriptors;
  std::optional<std::vector<JunctionOutcome>> junctions;
};

// Compares each line with the server after the run. Of a descriptor, the parts that the line has
// are compared.
std::vector<ListOutcome> CompareWithLists(const std::vector<ImportedVolume>& volumes,
                                          const TargetTest& source_had, Server& server);

// Returns lines such as these for each volume, each followed by the differences. Lines end with
// "\n":
//
//   junctions of D: 1 of 1 as its own list says
//   descriptors of D: 3 of 3 as its own list says
//   descriptors of D: nothing to compare, its list is missing
std::string ListReport(const std::vector<ListOutcome>& outcomes);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_LISTS_H_
