// The open handles of a node, and which access they leave to others.
#ifndef SIMULATOR_MODEL_FILES_HOLD_H_
#define SIMULATOR_MODEL_FILES_HOLD_H_

#include <windows.h>

#include <memory>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"

namespace simulator {

// Represents one open handle of a node until destroyed. A handle without access for reading,
// writing or deleting, for example one for attributes, is not counted and conflicts with no other
// handle.
class Hold {
 public:
  // Returns true if the existing handles permit `access`, and `share` permits the access of the
  // existing handles; otherwise returns false.
  static bool IsPossible(const Sharing& sharing, ACCESS_MASK access, DWORD share);

  // The constructor is called with the lock of Files held. The destructor acquires that lock
  // itself.
  Hold(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Node> node, ACCESS_MASK access,
       DWORD share);
  ~Hold();
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

  Node& Held() const { return *node_; }

 private:
  void Count(int by);

  const std::shared_ptr<FileSystem::Shared> shared_;
  const std::shared_ptr<Node> node_;
  const ACCESS_MASK access_;
  const DWORD share_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_HOLD_H_
