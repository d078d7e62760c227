// A file of the C runtime: what stands behind a FILE and behind a file stream alike.
#ifndef SIMULATOR_API_CRT_FILE_H_
#define SIMULATOR_API_CRT_FILE_H_

#include <cstddef>
#include <memory>
#include <string>

#include "simulator/model/files/text_file.h"

namespace simulator {

// Each operation is one call of the runtime's low-level function of that name, "_open" to
// "_close", in the trace and for faults. Failures leave their reason in errno.
class CrtFile {
 public:
  // Null on failure. `mode` is fopen's: r, w or a, then any of +, b and t; text without a b.
  static std::unique_ptr<CrtFile> Open(const char* path, const std::string& mode);

  // Characters read, 0 at the end of the file, -1 on failure.
  int Read(char* buffer, size_t size);

  // Characters written; fewer than asked when the disk filled up meanwhile, -1 when none was.
  int Write(const char* text, size_t size);

  // Once, last. The file is closed even when that fails.
  bool Close();

 private:
  CrtFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes);

  TextFile file_;
};

}  // namespace simulator

#endif  // SIMULATOR_API_CRT_FILE_H_
