// The bytes of a file that are made as they are read, so that it may be longer than memory.
#ifndef SIMULATOR_MODEL_FILES_MADE_BYTES_H_
#define SIMULATOR_MODEL_FILES_MADE_BYTES_H_

#include <cstddef>
#include <cstdint>
#include <functional>

namespace simulator {

// Puts what lies from `offset` on into the buffer, at most `size` bytes, and returns how many; 0
// only at the file's end. Called on any thread, under the lock of Files: it asks nothing of the
// server.
using MakeBytes = std::function<size_t(uint64_t offset, char* buffer, size_t size)>;

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_MADE_BYTES_H_
