#include "common/win/child_process_list.h"

namespace common::win {

void ChildProcessList::Forget() {
  end_ = &first_;
  for (Node* node = first_.exchange(nullptr); node != nullptr;) {
    Node* const next = node->next.load();
    delete node;
    node = next;
  }
}

ChildProcessList& ChildProcessList::Instance() {
  static ChildProcessList list;
  return list;
}

void ChildProcessList::Append(HANDLE process) {
  auto* const node = new Node{process};
  end_->store(node);
  end_ = &node->next;
}

}  // namespace common::win
