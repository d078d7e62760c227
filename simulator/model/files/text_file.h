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

// Text mode reads CR LF as LF, keeps every other CR, and takes Ctrl-Z (0x1A) as the end of the file
// for good. It writes each LF as CR LF, also one that follows a CR. Functions return a system error
// code. One thread at a time.
class TextFile {
 public:
  // A text file open for reading and writing loses a final Ctrl-Z.
  TextFile(std::shared_ptr<OpenFile> file, Translation translation, bool reads_and_writes);

  const std::string& Path() const { return file_->Path(); }

  // Reads at most `size` characters, at least one unless the file ends here.
  DWORD Read(char* buffer, size_t size, size_t* read);

  // `written` counts the caller's characters, not the bytes that they became.
  DWORD Write(std::string_view text, size_t* written);

 private:
  const std::shared_ptr<OpenFile> file_;
  const bool is_text_;
  bool ended_ = false;  // by a Ctrl-Z
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_TEXT_FILE_H_
