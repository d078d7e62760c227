#include "fault_sweep/allocations.h"

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>

#include "simulator/model/processes/platform_scope.h"

namespace fault_sweep {
namespace {

thread_local bool counts = false;
std::atomic<int> counted = 0;
std::atomic<int> to_fail = 0;
void (*tell_failure)() = nullptr;  // set before

bool IsToFail() {
  if (!counts || simulator::IsInPlatformCall()) return false;
  if (++counted != to_fail) return false;
  tell_failure();
  return true;
}

}  // namespace

void CountAllocationsOfThisThread() { counts = true; }

int CountedAllocations() { return counted; }

void FailAllocation(int number, void (*tell)()) {
  tell_failure = tell;
  to_fail = number;
}

}  // namespace fault_sweep

// Would come down to the other form, but a sanitizer has one of its own, whose blocks it wants
// back.
void* operator new(size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return fault_sweep::IsToFail() ? nullptr : std::malloc(size != 0 ? size : 1);
}

void* operator new(size_t size) {
  void* const block = operator new(size, std::nothrow);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void operator delete(void* block) noexcept { std::free(block); }

void operator delete(void* block, size_t /*size*/) noexcept { std::free(block); }
