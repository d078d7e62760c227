// The object that a handle to a file or folder refers to.
#ifndef SIMULATOR_MODEL_FILES_OPEN_NODE_H_
#define SIMULATOR_MODEL_FILES_OPEN_NODE_H_

#include <windows.h>

#include <memory>
#include <string>
#include <utility>

#include "simulator/model/files/hold.h"
#include "simulator/model/files/node.h"
#include "simulator/model/processes/handles.h"

namespace simulator {

struct Volume;

class OpenNode : public Object {
 public:
  OpenNode(std::shared_ptr<Volume> volume, std::unique_ptr<Hold> hold, ACCESS_MASK access)
      : volume_(std::move(volume)), hold_(std::move(hold)), access_(access) {}
  std::string Kind() const override { return "file"; }

  const Volume& On() const { return *volume_; }
  Node& Held() const { return hold_->Held(); }    // guarded by the lock of Files
  ACCESS_MASK Access() const { return access_; }  // the granted rights, without generic ones

 private:
  const std::shared_ptr<Volume> volume_;
  const std::unique_ptr<Hold> hold_;
  const ACCESS_MASK access_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_OPEN_NODE_H_
