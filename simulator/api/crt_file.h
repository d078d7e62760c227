// A file of the C runtime, as used by both FILE and file streams.
#ifndef SIMULATOR_API_CRT_FILE_H_
#define SIMULATOR_API_CRT_FILE_H_

#include <cstddef>
#include <memory>
#include <string>

#include "simulator/model/files/text_file.h"

namespace simulator {

// In the trace and for faults, each operation is one call of the runtime's low-level function of
// that name, "_open" to "_close". A failed operation sets errno.
class CrtFile {
 public:
  enum class PathText { kAnsi, kUtf8 };

  // Returns null on failure. `mode` is fopen's: r, w or a, then any of +, b and t. Text mode is
  // used unless `mode` contains a b.
  static std::unique_ptr<CrtFile> Open(const char* path, PathText text, const std::string& mode);

  // Returns the number of characters read, 0 at the end of the file, or -1 on failure.
  int Read(char* buffer, size_t size);

  // Returns the number of characters written, which is less than `size` if the disk became full, or
  // -1 if none was written.
  int Write(const char* text, size_t size);

  // Call once, as the last operation. The file is closed even if this fails.
  bool Close();

 private:
  CrtFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes);

  TextFile file_;
};

}  // namespace simulator

#endif  // SIMULATOR_API_CRT_FILE_H_
