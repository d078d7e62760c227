// The child processes that this process has started.
#ifndef COMMON_WIN_CHILD_PROCESS_LIST_H_
#define COMMON_WIN_CHILD_PROCESS_LIST_H_

#include <windows.h>

#include <atomic>

namespace common::win {

// Process handles in the order in which the processes were started. No entry is ever removed, not
// even when its handle is closed. One thread appends. Other threads may read at the same time
// without a lock; they see all entries up to some point.
class ChildProcessList {
 public:
  ChildProcessList() = default;
  ~ChildProcessList() { Forget(); }
  ChildProcessList(const ChildProcessList&) = delete;
  ChildProcessList& operator=(const ChildProcessList&) = delete;

  // Returns the list of this process.
  static ChildProcessList& Instance();

  void Append(HANDLE process);

  // Empties the list. Not while another thread uses it. For tests.
  void Forget();

  template <typename Visitor>
  void ForEach(Visitor visit) const {
    for (const Node* node = first_.load(); node != nullptr; node = node->next.load()) {
      visit(node->process);
    }
  }

 private:
  struct Node {
    HANDLE process;
    std::atomic<Node*> next = nullptr;
  };

  std::atomic<Node*> first_ = nullptr;
  std::atomic<Node*>* end_ = &first_;  // used by the appending thread only
};

}  // namespace common::win

#endif  // COMMON_WIN_CHILD_PROCESS_LIST_H_
