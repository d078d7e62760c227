#include "load/memory_use.h"

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>

namespace load {
namespace {

std::atomic<size_t> in_use = 0;
std::atomic<size_t> blocks = 0;
std::atomic<size_t> highest = 0;
std::atomic<size_t> large_blocks = 0;
std::atomic<size_t> large_bytes = 0;

void* Allocate(size_t size) {
  void* const block = std::malloc(size == 0 ? 1 : size);
  if (block == nullptr) throw std::bad_alloc();
  ++blocks;
  if (size > kLargeBlock) {
    ++large_blocks;
    large_bytes += size;
  }
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

// Whether the thread has begun to end: it is still listed for a moment after it has been joined.
bool IsEnding(const std::filesystem::path& task) {
  std::ifstream file(task / "stat");
  std::string stat;
  if (!std::getline(file, stat)) return true;
  // After the name: the state, five numbers and the flags.
  std::istringstream fields(stat.substr(stat.rfind(')') + 1));
  std::string skipped;
  for (int i = 0; i < 6; ++i) fields >> skipped;
  uint32_t flags = 0;
  if (!(fields >> flags)) throw std::runtime_error("no flags in " + task.string());
  constexpr uint32_t kExiting = 0x4;  // PF_EXITING
  return (flags & kExiting) != 0;
}

}  // namespace

size_t HeapInUse() { return in_use; }

size_t HeapBlocksInUse() { return blocks; }

size_t TakeHighestHeapUse() { return highest.exchange(in_use); }

LargeBlocks LargeBlocksHandedOut() { return {large_blocks, large_bytes}; }

size_t MallocInUse() {
  const struct mallinfo2 info = ::mallinfo2();
  return info.uordblks + info.hblkhd;
}

size_t ThreadCount() {
  const std::filesystem::directory_iterator tasks("/proc/self/task");
  return static_cast<size_t>(std::count_if(
      begin(tasks), end(tasks), [](const auto& task) { return !IsEnding(task.path()); }));
}

}  // namespace load

// The array forms come down to these. So would the form that does not throw, but a sanitizer has
// one of its own, whose blocks it wants back.
void* operator new(size_t size) { return load::Allocate(size); }
void* operator new(size_t size, const std::nothrow_t& /*tag*/) noexcept {
  try {
    return load::Allocate(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}
void operator delete(void* block) noexcept { load::Free(block); }
void operator delete(void* block, size_t /*size*/) noexcept { load::Free(block); }
