// Who has a node open, and what that leaves to others.
#ifndef SIMULATOR_MODEL_FILES_HOLD_H_
#define SIMULATOR_MODEL_FILES_HOLD_H_

#include <windows.h>

#include <memory>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"

namespace simulator {

// Counts among those who hold a node until it goes. Whoever opens a node for neither reading,
// writing nor deleting, say for its attributes, is not counted and disturbs nobody.
class Hold {
 public:
  // Whether those who hold the node leave room for `access`, and `share` for what they do.
  static bool IsPossible(const Sharing& sharing, ACCESS_MASK access, DWORD share);

  // Made under the lock of Files, which its end takes itself.
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
