// The contents of the source server's volumes, from which the backup files are written and with
// which the result is compared, and the copies of the volumes on the migrated server.
#ifndef REHEARSAL_DESCRIPTION_SOURCE_TREE_H_
#define REHEARSAL_DESCRIPTION_SOURCE_TREE_H_

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace simulator {

struct Identity;
struct Node;
struct ScenarioLosses;
struct ScenarioSource;
struct Volume;

struct SourceVolume {
  char letter = 'C';                 // on the source server, upper case
  std::shared_ptr<const Node> root;  // not in a Files object; junctions are ordinary nodes
  std::shared_ptr<Volume> copy;      // on the migrated server
};

// Creates the folders and files with the descriptors that the kernel would assign. Parent folders
// that the scenario does not name are created, too.
std::shared_ptr<const Node> MakeSourceTree(const ScenarioSource& source, const Identity& identity);

// Copies the tree below `source_root` to a volume, except what `lost` names. Existing files and
// folders are kept. Throws ScenarioError if a file exists in place of a folder, or a folder in
// place of a file.
void CopyTree(const Node& source_root, const ScenarioSource& source, const ScenarioLosses& lost,
              const Identity& identity, const std::shared_ptr<Node>& root);

// Calls `visit` for the root and for everything below it, each folder before its contents. `path`
// starts with the letter: "C:\Data".
void VisitTree(char letter, const Node& root,
               const std::function<void(const std::string& path, const Node& node)>& visit);

// Returns the target of a junction: "D:\Data", or the name as stored if it is not such a path.
// Returns an empty string if the node is not a junction.
std::string JunctionTargetOf(const Node& node);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SOURCE_TREE_H_
