// A file or folder on a simulated volume.
#ifndef SIMULATOR_MODEL_FILES_NODE_H_
#define SIMULATOR_MODEL_FILES_NODE_H_

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace simulator {

struct Descriptor;
struct Node;

// The bytes of a file that are generated when they are read, so that the file may be larger than
// memory. Copies the bytes from `offset` on into the buffer, at most `size`, and returns their
// number, which is 0 only at the end of the file. Called on any thread with the lock of Files held,
// so that the function must not call the server.
using MakeBytes = std::function<size_t(uint64_t offset, char* buffer, size_t size)>;

// The numbers of handles that access a node's contents, and of those that share each kind of
// access.
struct Sharing {
  int holders = 0;
  int readers = 0;
  int writers = 0;
  int deleters = 0;
  int share_reading = 0;
  int share_writing = 0;
  int share_deleting = 0;
};

// Children in the order of their NameKeys, by which they are found.
struct ByName {
  using is_transparent = void;
  bool operator()(const std::shared_ptr<Node>& a, const std::shared_ptr<Node>& b) const;
  bool operator()(const std::shared_ptr<Node>& a, std::string_view b) const;
  bool operator()(std::string_view a, const std::shared_ptr<Node>& b) const;
};

// What few nodes have: a server has millions of files that are empty and closed.
struct NodeContents {
  std::string bytes;     // for a file
  MakeBytes make_bytes;  // generates the bytes in place of `bytes`; such a file is read-only
  // The buffer of a reparse point as it was set, see junction.h; empty if the node is not a reparse
  // point. FILE_ATTRIBUTE_REPARSE_POINT is set if and only if this is not empty: MakeReparsePoint
  // sets both.
  std::string reparse_data;
  std::set<std::shared_ptr<Node>, ByName> children;  // for a folder
  Sharing sharing;
};

// Guarded by the lock of Files. Code that builds a tree before it is added to Files sets the
// attributes and any further members, but not the name, which AddChild sets.
struct Node {
 public:
  std::string name;  // as it was created; empty for a root
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
  // Null only until the node is added to a Files object, which then assigns the descriptor
  // inherited from the parent. Nodes with equal descriptors may share one object.
  std::shared_ptr<const Descriptor> security;

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

  // To read; those of a node that never had any are empty.
  const NodeContents& contents() const;
  // To change.
  NodeContents& OwnContents();

  // Returns null if there is no such child.
  std::shared_ptr<Node> Child(std::string_view child) const;
  // Returns the node at a path below this folder, such as "Data\a.txt", or null if it does not
  // exist. Junctions are not followed.
  const Node* Find(std::string_view path) const;
  // Creates a child without a descriptor. A child of that name must not exist.
  std::shared_ptr<Node> AddChild(std::string_view child, DWORD child_attributes);
  // The child must exist.
  void RemoveChild(std::string_view child);

  void MakeReparsePoint(std::string buffer);

 private:
  std::unique_ptr<NodeContents> contents_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_NODE_H_
