// How much heap this process has in use.
#ifndef BENCHMARKS_HEAP_USE_H_
#define BENCHMARKS_HEAP_USE_H_

#include <cstddef>

namespace benchmarks {

// Bytes that operator new has handed out and not got back.
size_t HeapInUse();

// The most that was in use since the last time this was called.
size_t TakeHighestHeapUse();

}  // namespace benchmarks

#endif  // BENCHMARKS_HEAP_USE_H_
