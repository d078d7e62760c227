// How much memory this process has in use.
#ifndef TESTS_LOAD_MEMORY_USE_H_
#define TESTS_LOAD_MEMORY_USE_H_

#include <cstddef>

namespace load {

inline constexpr size_t kKibibyte = 1024;
inline constexpr size_t kMebibyte = 1024 * kKibibyte;

// Bytes that operator new, which this replaces, has handed out and not got back; in so many blocks.
size_t HeapInUse();
size_t HeapBlocksInUse();
// The most bytes that were in use since the last time this was called.
size_t TakeHighestHeapUse();

// Every block of more than so many bytes that operator new has ever handed out.
inline constexpr size_t kLargeBlock = kKibibyte;
struct LargeBlocks {
  size_t count;
  size_t bytes;
};
LargeBlocks LargeBlocksHandedOut();

// Bytes that malloc, which operator new takes its own from, has handed out and not got back; also
// those that threads keep for their next blocks, a quarter of a megabyte each at most. Means
// nothing under the sanitizers, which have a malloc of their own.
size_t MallocInUse();

// Threads that have not come to their end.
size_t ThreadCount();

// What the later measure has more than the earlier; 0 when it has less.
constexpr size_t Growth(size_t before, size_t after) { return after > before ? after - before : 0; }

}  // namespace load

#endif  // TESTS_LOAD_MEMORY_USE_H_
