// The child tools that this process has started.
#ifndef COMMON_WIN_CHILD_PROCESS_LIST_H_
#define COMMON_WIN_CHILD_PROCESS_LIST_H_

#include <windows.h>

#include <atomic>

namespace common::win {

// Process handles in the order in which the children were started. Nothing is ever taken out: a
// handle stays listed after it has been closed. One thread appends; any other may read meanwhile,
// without a lock, and sees a beginning of the list.
class ChildProcessList {
 public:
  ChildProcessList() = default;
  ~ChildProcessList();
  ChildProcessList(const ChildProcessList&) = delete;
  ChildProcessList& operator=(const ChildProcessList&) = delete;

  // The list of this process.
  static ChildProcessList& Instance();

  void Append(HANDLE process);

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
  std::atomic<Node*>* end_ = &first_;  // the appending thread's alone
};

}  // namespace common::win

#endif  // COMMON_WIN_CHILD_PROCESS_LIST_H_
