// A file or folder on a simulated volume.
#ifndef SIMULATOR_MODEL_NODE_H_
#define SIMULATOR_MODEL_NODE_H_

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace simulator {

// Guarded by the lock of Files.
struct Node {
  std::string name;  // as it was made; empty for a root
  DWORD attributes = FILE_ATTRIBUTE_ARCHIVE;
  std::string bytes;                                      // of a file
  std::map<std::string, std::shared_ptr<Node>> children;  // of a folder, by NameKey
  int holders = 0;                                        // how often the file is open
  bool held_alone = false;                                // its one holder shares nothing

  bool IsFolder() const { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

  // Null when there is none.
  std::shared_ptr<Node> Child(std::string_view child) const;
  // Makes one; there is none of that name yet.
  std::shared_ptr<Node> AddChild(std::string_view child, DWORD child_attributes);
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_NODE_H_
