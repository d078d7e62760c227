// What the program had the system's tools do.
#ifndef REHEARSAL_DESCRIPTION_TOOL_HISTORY_H_
#define REHEARSAL_DESCRIPTION_TOOL_HISTORY_H_

#include <mutex>
#include <utility>
#include <vector>

#include "simulator/tools/tools.h"

namespace simulator {

// Thread-safe: each tool runs on a thread of its own.
class ToolHistory {
 public:
  void Add(ToolCall call) {
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
  }

  // Returns the calls that have ended, in that order.
  std::vector<ToolCall> Calls() const {
    const std::lock_guard lock(mutex_);
    return calls_;
  }

 private:
  mutable std::mutex mutex_;
  std::vector<ToolCall> calls_;
};

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_TOOL_HISTORY_H_
