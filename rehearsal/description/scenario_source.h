// The contents of a volume on the source server, and what its copy lost, as a scenario describes
// them. The keys are as follows; those in brackets are optional. Paths start after the root:
// "Data\Shares".
//
//   source:        [sddl] of the root, [folders], [files], [junctions]
//   folders:       path, [sddl], [copy_sddl], [attributes], [folders] and [files]: the numbers
//                  of objects to create in the folder; the files are distributed over the folder
//                  and those subfolders
//   files:         path, [sddl], [copy_sddl], [attributes]
//   junctions:     path, target "D:\Data", [sddl], [attributes], [copy] "junction", "nothing",
//                  "file" or "folder": the object in its place on the copy
//   attributes:    letters of "RHSATOI": read-only, hidden, system, archive, temporary, offline,
//                  not indexed
//   sddl:          the owner, group and lists that the text contains; other parts are inherited,
//                  and so are the inherited entries of a list that is not protected
//   copy_sddl:     the descriptor on a copy that lost the source's; if missing, all parts are
//                  inherited
//   lost:          any of "descriptors", "junctions", "attributes", "prepare_folder",
//                  "junction_list", "acl_list"; by default the first three
//   unreadable:    "junction_list", "acl_list": files that deny read access to the administrator
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
  std::shared_ptr<const Descriptor> given;       // the parts in its text; others are inherited
  std::shared_ptr<const Descriptor> copy_given;  // likewise on the copy
  DWORD attributes = 0;
  int folders = 0;  // the number to create in it
  int files = 0;
};

enum class JunctionCopy { kJunction, kNothing, kFile, kFolder };

struct ScenarioJunction {
  ScenarioObject object;
  std::string target;
  std::optional<JunctionCopy> copy;  // if none, as ScenarioLosses says
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
