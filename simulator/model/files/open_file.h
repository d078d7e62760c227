// A file that is open: bytes as they lie on the disk.
#ifndef SIMULATOR_MODEL_FILES_OPEN_FILE_H_
#define SIMULATOR_MODEL_FILES_OPEN_FILE_H_

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "simulator/model/files/files.h"
#include "simulator/model/files/hold.h"

namespace simulator {

// Holds the file until it goes; stays usable when the volume has lost its letter. Made by Files.
// Functions that can fail return a system error code. Thread-safe.
class OpenFile {
 public:
  OpenFile(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Volume> volume,
           std::unique_ptr<Hold> hold, std::string path, const OpenMode& mode);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  // The path it was opened by.
  const std::string& Path() const { return path_; }

  // Reads at most `size` bytes from the position; none at the end of the file.
  DWORD Read(char* buffer, size_t size, size_t* read);

  // Writes at the position, or at the end when it was opened to append. What fits is written
  // before ERROR_DISK_FULL.
  DWORD Write(std::string_view bytes, size_t* written);

  // Moves the position back over the byte just read.
  void StepBack();

  // Cuts the file's last byte when it is `byte`.
  void DropLast(char byte);

 private:
  const std::shared_ptr<FileSystem::Shared> shared_;
  const std::shared_ptr<Volume> volume_;
  const std::unique_ptr<Hold> hold_;
  const std::string path_;
  const OpenMode mode_;
  size_t position_ = 0;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_OPEN_FILE_H_
