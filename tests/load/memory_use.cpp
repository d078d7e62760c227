#include "load/memory_use.h"

#include <malloc.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <new>
#include <stdexcept>
#include <string>

namespace load {
namespace {

std::atomic<size_t> in_use = 0;
std::atomic<size_t> blocks = 0;
std::atomic<size_t> highest = 0;

void* Allocate(size_t size) {
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++blocks;
  const size_t now = in_use += ::malloc_usable_size(block);
  for (size_t most = highest; now > most && !highest.compare_exchange_weak(most, now);) continue;
  return block;
}

void Free(void* block) {
  if (block == nullptr) return;
  --blocks;
  in_use -= ::malloc_usable_size(block);
  std::free(block);
}

// The number behind a name of /proc/self/status.
size_t StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    size_t number = 0;
    if (word == name + ":" && status >> number) return number;
  }
  throw std::runtime_error("/proc/self/status has no " + name);
}

}  // namespace

size_t HeapInUse() { return in_use; }

size_t HeapBlocksInUse() { return blocks; }

size_t TakeHighestHeapUse() { return highest.exchange(in_use); }

size_t Resident() { return StatusOf("VmRSS") * kKibibyte; }

size_t ThreadCount() { return StatusOf("Threads"); }

}  // namespace load

// The array forms come down to these.
void* operator new(size_t size) { return load::Allocate(size); }
void operator delete(void* block) noexcept { load::Free(block); }
void operator delete(void* block, size_t /*size*/) noexcept { load::Free(block); }
