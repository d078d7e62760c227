// The local heap: blocks that functions allocate and the program frees with LocalFree.
#ifndef SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_
#define SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_

#include <cstddef>

namespace simulator {

// The heap belongs to the process, not to a server; blocks may outlive the server on which they
// were allocated. Thread-safe.
void* AllocateLocal(size_t size);  // zeroed

// Returns false if `block` is not an allocated block; otherwise frees it and returns true.
bool FreeLocal(void* block);

// Returns the number of blocks not yet freed.
int LiveLocalBlocks();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_
