// The C runtime's text mode over an open file.
#ifndef SIMULATOR_MODEL_FILES_TEXT_FILE_H_
#define SIMULATOR_MODEL_FILES_TEXT_FILE_H_

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/model/files/open_file.h"

namespace simulator {

enum class Translation { kText, kBinary };

// Text mode reads CR LF as LF, keeps every other CR, and treats the first Ctrl-Z (0x1A) as the end
// of the file. It writes each LF as CR LF, even after a CR. Functions return a system error code.
// Not thread-safe.
class TextFile {
 public:
  // If a text file is opened for reading and writing, a final Ctrl-Z is removed from it.
  TextFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes);

  const std::string& Path() const { return file_->Path(); }

  // Reads at most `size` characters, and at least one except at the end of the file.
  DWORD Read(char* buffer, size_t size, size_t* read);

  // `written` is the number of the caller's characters written, not the number of bytes after
  // translation.
  DWORD Write(std::string_view text, size_t* written);

 private:
  const std::shared_ptr<OpenFile> file_;
  const bool is_text_;
  bool ended_ = false;  // by a Ctrl-Z
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_TEXT_FILE_H_
