// Files and folders that the program has open, and which access they leave to others.
#ifndef SIMULATOR_MODEL_FILES_OPEN_FILE_H_
#define SIMULATOR_MODEL_FILES_OPEN_FILE_H_

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/processes/handles.h"

namespace simulator {

// Represents one open handle of a node until destroyed. A handle without access for reading,
// writing or deleting, for example one for attributes, is not counted and conflicts with no other
// handle.
class Hold {
 public:
  // Returns true if the existing handles permit `access`, and `share` permits the access of the
  // existing handles; otherwise returns false.
  static bool IsPossible(const Sharing& sharing, ACCESS_MASK access, DWORD share);

  // The constructor is called with the lock of Files held. The destructor acquires that lock
  // itself.
  Hold(std::shared_ptr<FileSystem::Shared> shared, std::shared_ptr<Node> node, ACCESS_MASK access,
       DWORD share);
  ~Hold();
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

  Node& Held() const { return *node_; }

 private:
  void Count(int by);

  const std::shared_ptr<FileSystem::Shared> shared_;
  const std::shared_ptr<Node> node_;
  const ACCESS_MASK access_;
  const DWORD share_;
};

// An open file, read and written as unchanged bytes. Keeps the file open until destroyed. It
// remains usable after the volume has lost its letter. Created by Files. Functions that can fail
// return a system error code. Thread-safe.
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

// The object that a handle to a file or folder refers to.
class OpenNode : public Object {
 public:
  OpenNode(std::shared_ptr<Volume> volume, std::unique_ptr<Hold> hold, ACCESS_MASK access)
      : volume_(std::move(volume)), hold_(std::move(hold)), access_(access) {}
  std::string Kind() const override { return "file"; }

  const Volume& On() const { return *volume_; }
  Node& Held() const { return hold_->Held(); }    // guarded by the lock of Files
  ACCESS_MASK Access() const { return access_; }  // the granted rights, without generic ones

 private:
  const std::shared_ptr<Volume> volume_;
  const std::unique_ptr<Hold> hold_;
  const ACCESS_MASK access_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_OPEN_FILE_H_
