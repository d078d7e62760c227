// Bytes of a file that are generated when they are read, so that the file may be larger than
// memory.
#ifndef SIMULATOR_MODEL_FILES_MADE_BYTES_H_
#define SIMULATOR_MODEL_FILES_MADE_BYTES_H_

#include <cstddef>
#include <cstdint>
#include <functional>

namespace simulator {

// Copies the bytes from `offset` on into the buffer, at most `size`, and returns their number,
// which is 0 only at the end of the file. Called on any thread with the lock of Files held, so that
// the function must not call the server.
using MakeBytes = std::function<size_t(uint64_t offset, char* buffer, size_t size)>;

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_MADE_BYTES_H_
