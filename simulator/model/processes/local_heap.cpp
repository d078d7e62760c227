#include "simulator/model/processes/local_heap.h"

#include <map>
#include <memory>
#include <mutex>

namespace simulator {
namespace {

struct Heap {
  std::mutex mutex;
  std::map<void*, std::unique_ptr<char[]>> blocks;
};

Heap& TheHeap() {
  static Heap heap;
  return heap;
}

}  // namespace

void* AllocateLocal(size_t size) {
  auto block = std::make_unique<char[]>(size);
  void* const address = block.get();
  Heap& heap = TheHeap();
  const std::lock_guard lock(heap.mutex);
  heap.blocks.emplace(address, std::move(block));
  return address;
}

bool FreeLocal(void* block) {
  Heap& heap = TheHeap();
  const std::lock_guard lock(heap.mutex);
  return heap.blocks.erase(block) == 1;
}

int LiveLocalBlocks() {
  Heap& heap = TheHeap();
  const std::lock_guard lock(heap.mutex);
  return static_cast<int>(heap.blocks.size());
}

}  // namespace simulator
