// Volumes, drive letters and the files on them, in memory, as the calls of the program use them.
// Functions that can fail return a system error code, 0 (ERROR_SUCCESS) if they did not.
#ifndef SIMULATOR_MODEL_FILES_FILES_H_
#define SIMULATOR_MODEL_FILES_FILES_H_

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

#include "simulator/model/server.h"

namespace simulator {

struct Node;
struct PathName;
struct SecurityChange;
class Security;
class SharedDescriptors;
// A file that is open. Bytes as they lie on the disk; text mode is TextFile's work.
class OpenFile;
// A file or folder that a handle stands for.
class OpenNode;

enum class Creation { kOpenExisting, kCreateAlways, kOpenAlways };

struct OpenMode {
  bool read = false;
  bool write = false;
  bool append = false;  // every write goes to the end
  bool alone = false;   // shares nothing; otherwise reading and writing are shared, never deleting
  Creation creation = Creation::kOpenExisting;
};

// What CreateFile asks for.
struct HandleMode {
  ACCESS_MASK access = 0;  // generic rights allowed
  DWORD share = 0;
  bool backup_semantics = false;
  bool open_reparse_point = false;
};

// The one implementation of Files.
class FileSystem final : public Files {
 public:
  // `security` tells whom access is checked for; it must outlive this object.
  explicit FileSystem(const Security& security);
  ~FileSystem() override;

  std::shared_ptr<Volume> AddVolume(Volume volume) override;
  bool Mount(char letter, std::shared_ptr<Volume> volume) override;
  bool MountEmpty(char letter) override;
  void Unmount(char letter) override;
  std::shared_ptr<Volume> VolumeAt(char letter) const override;
  std::optional<char> LetterOf(const Volume& volume) const override;
  void SetFreeSpace(char letter, uint64_t bytes) override;
  bool Exists(std::string_view path) const override;
  void MakeDirectories(std::string_view path) override;
  void Write(std::string_view path, std::string bytes) override;
  void WriteOn(const Volume& volume, std::string_view path, std::string bytes) override;
  std::optional<std::string> Read(std::string_view path) const override;
  std::optional<std::string> ReadOn(const Volume& volume, std::string_view path) const override;
  std::vector<std::string> List(std::string_view folder) const override;
  void Remove(std::string_view path) override;
  void SetAttributes(std::string_view path, DWORD attributes) override;
  void SetDescriptor(std::string_view path, const Descriptor& descriptor) override;
  std::optional<Descriptor> DescriptorOf(std::string_view path) const override;
  void MakeJunction(std::string_view path, std::string_view target) override;
  std::optional<std::string> JunctionTarget(std::string_view path) const override;
  void Watch(Watcher watcher) override;

  // A file that is only to be read, by the program alone; see made_bytes.h.
  void WriteMade(std::string_view path,
                 std::function<size_t(uint64_t offset, char* buffer, size_t size)> make_bytes);
  std::optional<char> FreeLetter() const;  // the first from C on

  // What the calls of the program need. Junctions on the way are followed; at the end of a path
  // only opening follows them.
  DWORD Attributes(std::string_view path, DWORD* attributes) const;
  DWORD ChangeAttributes(std::string_view path, DWORD attributes);
  DWORD MakeDirectory(std::string_view path);    // one level
  DWORD RemoveDirectory(std::string_view path);  // an empty folder or a junction
  DWORD Delete(std::string_view path);           // a file, neither read-only nor open
  DWORD Open(std::string_view path, const OpenMode& mode, std::shared_ptr<OpenFile>* file);
  DWORD OpenHandle(std::string_view path, const HandleMode& mode, std::shared_ptr<OpenNode>* node);
  DWORD SetReparsePoint(const OpenNode& node, std::string_view buffer);
  // Passes on to all below what they inherit.
  DWORD SetSecurity(std::string_view path, const SecurityChange& change);
  std::string FullPath(std::string_view path) const;  // empty when there is none
  // DRIVE_NO_ROOT_DIR for what is not the root of a mounted volume.
  UINT DriveType(std::string_view root) const;

  // Where relative paths start; the system directory at first.
  void SetCurrentFolder(std::string full_path);

 private:
  enum class AtEnd { kStay, kFollow };  // what a junction at the end of a path means

  // What access is checked with besides descriptors: with the intent to back up or restore, the
  // privileges for that count.
  enum class Intent { kPlain, kBackup };

  // Where a path leads. Without a node there is a parent folder that lacks the last name.
  struct Place {
    std::shared_ptr<Volume> volume;
    std::shared_ptr<Node> parent;  // null for a root
    std::shared_ptr<Node> node;    // null when there is none
    std::string name;
    bool ends_in_separator = false;
    size_t bounded_length = 0;  // of the full path; 0 for a verbatim one
  };

  // These hold the lock already.
  DWORD Locate(std::string_view path, AtEnd at_end, Place* place) const;
  // Stops at a junction that is to be followed and tells the path that it leads to.
  DWORD Walk(const PathName& path, AtEnd at_end, Place* place, std::string* onward) const;
  // What is there, as far as the path tells it from a file.
  DWORD LocateExisting(std::string_view path, Place* place) const;
  DWORD Prepare(const Place& place, const OpenMode& mode, std::shared_ptr<Node>* node);
  DWORD Erase(const Place& place);
  std::shared_ptr<Node> Add(Node& parent, std::string_view name, DWORD attributes);
  std::shared_ptr<Node> MakeBelow(const Volume& volume, const std::vector<std::string>& names,
                                  DWORD attributes);
  std::shared_ptr<Node> Find(std::string_view path) const;  // null when there is none
  const Volume& VolumeFor(std::string_view path) const;

  // Whether the program has the rights. A parent may grant what the node does not.
  bool May(const Place& place, ACCESS_MASK wanted, Intent intent) const;
  bool May(const Volume& volume, const Node& node, ACCESS_MASK wanted, Intent intent) const;
  DWORD CheckChange(const Place& place, const SecurityChange& change) const;
  struct Passed;  // what has been made of a descriptor that others inherit, too
  void PassOn(const Place& folder, const Descriptor& before, SECURITY_INFORMATION lists,
              Passed* passed);

  // With the open files, which may outlive this.
  struct Shared {
    std::mutex mutex;
    Watcher watcher;
  };
  friend class Hold;
  friend class OpenFile;

  const Security& security_;
  const std::unique_ptr<SharedDescriptors> inherited_;
  const std::shared_ptr<Shared> shared_;
  std::string current_folder_ = "C:\\Windows\\system32";
  std::vector<std::shared_ptr<Volume>> volumes_;
  std::map<char, std::shared_ptr<Volume>> letters_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_FILES_H_
