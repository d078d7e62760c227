// A file or folder on a simulated volume.
#ifndef SIMULATOR_MODEL_FILES_NODE_H_
#define SIMULATOR_MODEL_FILES_NODE_H_

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/model/files/made_bytes.h"

namespace simulator {

struct Descriptor;

// Who has a node open for its contents, and what all of them let others do.
struct Sharing {
  int holders = 0;
  int readers = 0;
  int writers = 0;
  int deleters = 0;
  int share_reading = 0;
  int share_writing = 0;
  int share_deleting = 0;
};

// Guarded by the lock of Files. Whoever builds a tree before it is added to Files sets the name,
// the attributes and what he wants of the rest, and keys children by NameKey (AddChild does).
struct Node {
  std::string name;  // as it was made; empty for a root
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
  std::string bytes;     // of a file
  MakeBytes make_bytes;  // makes them in place of `bytes`; such a file can only be read
  // Null only before the node is in a Files, which then makes the one that the parent lets inherit.
  // Nodes share one that is the same.
  std::shared_ptr<const Descriptor> security;
  // The buffer of a reparse point as it was set, see junction.h; empty when the node is none.
  // FILE_ATTRIBUTE_REPARSE_POINT goes with it: MakeReparsePoint sets both.
  std::string reparse_data;
  std::map<std::string, std::shared_ptr<Node>> children;  // of a folder, by NameKey
  Sharing sharing;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

  // Null when there is none.
  std::shared_ptr<Node> Child(std::string_view child) const;
  // What lies at that path behind this folder, "Data\a.txt"; null when nothing does. Junctions are
  // not followed.
  const Node* Find(std::string_view path) const;
  // Makes one, without a descriptor; there is none of that name yet.
  std::shared_ptr<Node> AddChild(std::string_view child, DWORD child_attributes);

  void MakeReparsePoint(std::string buffer);
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_NODE_H_
