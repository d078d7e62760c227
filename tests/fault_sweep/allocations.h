// The program's own allocations through operator new, which this replaces, and the one that fails.
#ifndef TESTS_FAULT_SWEEP_ALLOCATIONS_H_
#define TESTS_FAULT_SWEEP_ALLOCATIONS_H_

namespace fault_sweep {

// From now on what the calling thread allocates outside of calls of the platform counts.
void CountAllocationsOfThisThread();
int CountedAllocations();

// Lets the counted allocation of that number, 1 for the first, call `tell` and throw
// std::bad_alloc.
void FailAllocation(int number, void (*tell)());

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_ALLOCATIONS_H_
