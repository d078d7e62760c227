// What a volume held on the source server, and what its copy lost, as a scenario describes it. The
// keys, those in brackets optional; paths start behind the root: "Data\Shares".
//
//   source:        [sddl] of the root, [folders], [files], [junctions]
//   folders:       path, [sddl], [copy_sddl], [attributes], [folders] and [files]: how many to make
//                  in it, the files spread over it and those folders
//   files:         path, [sddl], [copy_sddl], [attributes]
//   junctions:     path, target "D:\Data", [sddl], [attributes], [copy] "junction", "nothing",
//                  "file" or "folder": what stands in its place on the copy
//   attributes:    letters of "RHSATOI": read-only, hidden, system, archive, temporary, offline,
//                  not indexed
//   sddl:          the owner, group and lists that it gives; whatever it leaves out is inherited,
//                  and so are the inherited entries of a list that is not protected
//   copy_sddl:     the descriptor on a copy that lost the source's; else all of it is inherited
//   lost:          any of "descriptors", "junctions", "attributes", "prepare_folder",
//                  "junction_list", "acl_list"; the first three unless it is given
//   unreadable:    "junction_list", "acl_list": files that deny the administrator to read them
#ifndef REHEARSAL_DESCRIPTION_SCENARIO_SOURCE_H_
#define REHEARSAL_DESCRIPTION_SCENARIO_SOURCE_H_

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace simulator {

class JsonPlace;
struct Descriptor;

struct ScenarioObject {
  std::string path;
  std::shared_ptr<const Descriptor> given;       // what its text gives; the rest is inherited
  std::shared_ptr<const Descriptor> copy_given;  // likewise on the copy
  DWORD attributes = 0;
  int folders = 0;  // to make in it
  int files = 0;
};

enum class JunctionCopy { kJunction, kNothing, kFile, kFolder };

struct ScenarioJunction {
  ScenarioObject object;
  std::string target;
  std::optional<JunctionCopy> copy;  // nothing is said: as all junctions
};

struct ScenarioSource {
  std::shared_ptr<const Descriptor> root_given;
  std::vector<ScenarioObject> folders;
  std::vector<ScenarioObject> files;
  std::vector<ScenarioJunction> junctions;
};

struct ScenarioLosses {
  bool descriptors = true;
  bool junctions = true;
  bool attributes = true;
  bool prepare_folder = false;
  bool junction_list = false;
  bool acl_list = false;
};

struct ScenarioUnreadable {
  bool junction_list = false;
  bool acl_list = false;
};

// These throw ScenarioError.
ScenarioSource ReadSource(const JsonPlace& place);
ScenarioLosses ReadLosses(const JsonPlace& place);
ScenarioUnreadable ReadUnreadable(const JsonPlace& place);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SCENARIO_SOURCE_H_
