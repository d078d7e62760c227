// Nodes that are open, and what a handle to one stands for.
#ifndef SIMULATOR_MODEL_OPEN_NODE_H_
#define SIMULATOR_MODEL_OPEN_NODE_H_

#include <windows.h>

#include <memory>
#include <string>

#include "simulator/model/files.h"
#include "simulator/model/handles.h"
#include "simulator/model/node.h"

namespace simulator {

// Counts among those who hold a node until it goes. Whoever opens a node for neither reading,
// writing nor deleting, say for its attributes, is not counted and disturbs nobody.
class Hold {
 public:
  // Whether those who hold the node leave room for `access`, and `share` for what they do.
  static bool IsPossible(const Sharing& sharing, ACCESS_MASK access, DWORD share);

  // Made under the lock of Files, which its end takes itself.
  Hold(std::shared_ptr<Files::Shared> shared, std::shared_ptr<Node> node, ACCESS_MASK access,
       DWORD share);
  ~Hold();
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

  Node& Held() const { return *node_; }

 private:
  void Count(int by);

  const std::shared_ptr<Files::Shared> shared_;
  const std::shared_ptr<Node> node_;
  const ACCESS_MASK access_;
  const DWORD share_;
};

class OpenNode : public Object {
 public:
  OpenNode(std::shared_ptr<Volume> volume, std::unique_ptr<Hold> hold, ACCESS_MASK access)
      : volume_(std::move(volume)), hold_(std::move(hold)), access_(access) {}
  std::string Kind() const override { return "file"; }

  const Volume& On() const { return *volume_; }
  Node& Held() const { return hold_->Held(); }    // guarded by the lock of Files
  ACCESS_MASK Access() const { return access_; }  // what was granted, without generic rights

 private:
  const std::shared_ptr<Volume> volume_;
  const std::unique_ptr<Hold> hold_;
  const ACCESS_MASK access_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_OPEN_NODE_H_
