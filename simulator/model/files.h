// Volumes, drive letters and the files on them, in memory.
//
// Paths are narrow UTF-8 text as the program writes them: "C:\Windows", blanks and all. Names match
// without regard to ASCII case and keep the case they were made with. Functions that can fail
// return a system error code, 0 (ERROR_SUCCESS) when they did not. Thread-safe.
#ifndef SIMULATOR_MODEL_FILES_H_
#define SIMULATOR_MODEL_FILES_H_

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/volume.h"

namespace simulator {

// A file that is open. Bytes as they lie on the disk; text mode is TextFile's work.
class OpenFile;

enum class Creation { kOpenExisting, kCreateAlways, kOpenAlways };

struct OpenMode {
  bool read = false;
  bool write = false;
  bool append = false;  // every write goes to the end
  bool alone = false;   // shares nothing; otherwise reading and writing are shared, never deleting
  Creation creation = Creation::kOpenExisting;
};

class Files {
 public:
  Files();
  ~Files();

  // Volumes and letters ('A' to 'Z'; either case is taken, upper case is given). A letter moves at
  // any time: look-ups see it at once, open files keep their volume.
  std::shared_ptr<Volume> AddVolume(Volume volume);
  bool Mount(char letter, std::shared_ptr<Volume> volume);  // false when the letter is taken
  void Unmount(char letter);
  std::shared_ptr<Volume> VolumeAt(char letter) const;  // null when free
  std::optional<char> LetterOf(const Volume& volume) const;
  std::optional<char> FreeLetter() const;  // the first from C on

  // What the calls of the program need.
  DWORD Attributes(std::string_view path, DWORD* attributes) const;
  DWORD MakeDirectory(std::string_view path);  // one level
  DWORD Delete(std::string_view path);         // a file, neither read-only nor open
  DWORD Open(std::string_view path, const OpenMode& mode, std::shared_ptr<OpenFile>* file);
  // DRIVE_NO_ROOT_DIR for what is not the root of a mounted volume.
  UINT DriveType(std::string_view root) const;

  // Called with what the program writes to a file, as it writes it, under the lock of this object.
  using Watcher = std::function<void(const std::string& path, std::string_view bytes)>;
  void Watch(Watcher watcher);

  // Where relative paths start; the system directory at first.
  void SetCurrentFolder(std::string full_path);

  // For tests, scenarios and tools. Missing parents are made. What Windows would refuse ends the
  // process, but for questions about what is not there.
  bool Exists(std::string_view path) const;
  void MakeDirectories(std::string_view path);
  void Write(std::string_view path, std::string bytes);
  // The same on a volume that need not be mounted; the path starts behind the root: "a\b".
  void WriteOn(const Volume& volume, std::string_view path, std::string bytes);
  std::optional<std::string> Read(std::string_view path) const;
  std::optional<std::string> ReadOn(const Volume& volume, std::string_view path) const;
  void SetAttributes(std::string_view path, DWORD attributes);
  std::vector<std::string> List(std::string_view folder) const;  // names, sorted
  void Remove(std::string_view path);                            // with all below it

 private:
  // Where a path leads. Without a node there is a parent folder that lacks the last name.
  struct Place {
    std::shared_ptr<Volume> volume;
    std::shared_ptr<Node> parent;  // null for a root
    std::shared_ptr<Node> node;    // null when there is none
    std::string name;
    bool ends_in_separator = false;
    size_t length = 0;  // of the full path
  };

  // These hold the lock already.
  DWORD Locate(std::string_view path, Place* place) const;
  DWORD Prepare(const Place& place, const OpenMode& mode, std::shared_ptr<Node>* node);
  std::shared_ptr<Node> Find(std::string_view path) const;  // null when there is none
  const Volume& VolumeFor(std::string_view path) const;

  // With the open files, which may outlive this.
  struct Shared {
    std::mutex mutex;
    Watcher watcher;
  };
  friend class OpenFile;

  const std::shared_ptr<Shared> shared_;
  std::string current_folder_ = "C:\\Windows\\system32";
  std::vector<std::shared_ptr<Volume>> volumes_;
  std::map<char, std::shared_ptr<Volume>> letters_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_H_
