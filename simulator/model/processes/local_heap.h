// The platform heap: blocks that calls hand out and the program gives back by LocalFree.
#ifndef SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_
#define SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_

#include <cstddef>

namespace simulator {

// The heap belongs to the process, not to a server: blocks may outlive theirs. Thread-safe.
void* AllocateLocal(size_t size);  // zeroed

// False for what is no live block.
bool FreeLocal(void* block);

// Blocks not yet given back.
int LiveLocalBlocks();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_LOCAL_HEAP_H_
