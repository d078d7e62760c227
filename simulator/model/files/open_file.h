// An open file, read and written as unchanged bytes.
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

// Keeps the file open until destroyed. It remains usable after the volume has lost its letter.
// Created by Files. Functions that can fail return a system error code. Thread-safe.
class OpenFile {
 public:
  OpenFile(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Volume> volume,
           std::unique_ptr<Hold> hold, std::string path, const OpenMode& mode);
  ~OpenFile();
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  // The path by which the file was opened.
  const std::string& Path() const { return path_; }

  // Reads at most `size` bytes from the current position; reads none at the end of the file.
  DWORD Read(char* buffer, size_t size, size_t* read);

  // Writes at the current position, or at the end of the file if it was opened to append. Before it
  // returns ERROR_DISK_FULL, it writes as many bytes as fit.
  DWORD Write(std::string_view bytes, size_t* written);

  // Moves the position back by the byte just read.
  void StepBack();

  // Removes the last byte of the file if it is `byte`.
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
