// What the source server's volumes held, kept to write their backups from and to compare with, and
// the copies of it that came to the migrated server.
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
  std::shared_ptr<const Node> root;  // of no Files; junctions are nodes like others
  std::shared_ptr<Volume> copy;      // on the migrated server
};

// Folders and files with the descriptors that the kernel would have given them. Parents that the
// scenario does not name are made, too.
std::shared_ptr<const Node> MakeSourceTree(const ScenarioSource& source, const Identity& identity);

// Copies the tree below `source_root` to a volume, less what is lost. What is there already stays;
// throws ScenarioError for a file in place of a folder, or a folder in place of a file.
void CopyTree(const Node& source_root, const ScenarioSource& source, const ScenarioLosses& lost,
              const Identity& identity, const std::shared_ptr<Node>& root);

// Calls `visit` for the root and all below it, folders before what is in them; `path` starts with
// the letter, "C:\Data".
void VisitTree(char letter, const Node& root,
               const std::function<void(const std::string& path, const Node& node)>& visit);

// Where a junction leads: "D:\Data", or what it names otherwise; empty for what is no junction.
std::string JunctionTargetOf(const Node& node);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SOURCE_TREE_H_
