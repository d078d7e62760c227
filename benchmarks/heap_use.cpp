#include "heap_use.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<size_t> in_use = 0;
std::atomic<size_t> highest = 0;

void* Allocate(size_t size) {
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  const size_t width = ::malloc_usable_size(block);
  const size_t now = in_use.fetch_add(width, std::memory_order_relaxed) + width;
  if (now > highest.load(std::memory_order_relaxed)) {
    highest.store(now, std::memory_order_relaxed);
  }
  return block;
}

void Free(void* block) {
  if (block == nullptr) return;
  in_use.fetch_sub(::malloc_usable_size(block), std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

// The array forms come down to these.
void* operator new(size_t size) { return Allocate(size); }
void operator delete(void* block) noexcept { Free(block); }
void operator delete(void* block, size_t /*size*/) noexcept { Free(block); }

namespace benchmarks {

size_t HeapInUse() { return in_use; }

size_t TakeHighestHeapUse() { return highest.exchange(in_use.load()); }

}  // namespace benchmarks
