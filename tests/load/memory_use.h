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

// Bytes of its memory that are in the machine's.
size_t Resident();

size_t ThreadCount();

// What the later measure has more than the earlier; 0 when it has less.
constexpr size_t Growth(size_t before, size_t after) { return after > before ? after - before : 0; }

}  // namespace load

#endif  // TESTS_LOAD_MEMORY_USE_H_
