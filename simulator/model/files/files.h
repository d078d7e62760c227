// In-memory volumes, drive letters and files, as the functions that the program calls use them.
// Functions that can fail return a system error code, or ERROR_SUCCESS.
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
// An open file. Bytes are read and written unchanged; TextFile implements text mode.
class OpenFile;
// A file or folder opened by a handle.
class OpenNode;

enum class Creation { kOpenExisting, kCreateAlways, kOpenAlways };

struct OpenMode {
  bool read = false;
  bool write = false;
  bool append = false;  // every write is at the end of the file
  bool alone = false;   // shares nothing; otherwise reading and writing are shared, deleting is not
  Creation creation = Creation::kOpenExisting;
};

// The parameters of CreateFile.
struct HandleMode {
  ACCESS_MASK access = 0;  // generic rights allowed
  DWORD share = 0;
  bool backup_semantics = false;
  bool open_reparse_point = false;
};

// The only implementation of Files.
class FileSystem final : public Files {
 public:
  // `security` is the token that access is checked against; it must outlive this object.
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

  // Creates a file whose bytes are generated when it is read; see node.h. Only the program
  // may read it, and nothing may write it.
  void WriteMade(std::string_view path,
                 std::function<size_t(uint64_t offset, char* buffer, size_t size)> make_bytes);
  std::optional<char> FreeLetter() const;  // the first from C on

  // For the functions that the program calls. Junctions within a path are followed; a junction at
  // the end of a path is followed only when it is opened.
  DWORD Attributes(std::string_view path, DWORD* attributes) const;
  DWORD ChangeAttributes(std::string_view path, DWORD attributes);
  DWORD MakeDirectory(std::string_view path);    // one level
  DWORD RemoveDirectory(std::string_view path);  // an empty folder or a junction
  DWORD Delete(std::string_view path);           // a file, neither read-only nor open
  DWORD Open(std::string_view path, const OpenMode& mode, std::shared_ptr<OpenFile>* file);
  DWORD OpenHandle(std::string_view path, const HandleMode& mode, std::shared_ptr<OpenNode>* node);
  DWORD SetReparsePoint(const OpenNode& node, std::string_view buffer);
  // Sets the descriptor and propagates inheritable entries to the objects below the path. An object
  // that the program may not change is skipped together with everything below it. A SACL is set
  // without its labels, attributes and policy ids: the object keeps its own (sacl_entries.h).
  DWORD SetSecurity(std::string_view path, const SecurityChange& change);
  std::string FullPath(std::string_view path) const;  // empty if there is none
  // Returns DRIVE_NO_ROOT_DIR if the path is not the root of a mounted volume.
  UINT DriveType(std::string_view root) const;
  // Returns the letter of the drive without a medium that a path leads to, or nothing if it leads
  // to none.
  std::optional<char> EmptyDrive(std::string_view path) const;

  // Sets the current directory, from which relative paths start. At first it is the system
  // directory.
  void SetCurrentFolder(std::string full_path);

 private:
  enum class AtEnd { kStay, kFollow };  // how a junction at the end of a path is treated

  // How access is checked. With kBackup, enabled backup and restore privileges grant access in
  // addition to descriptors.
  enum class Intent { kPlain, kBackup };

  // The object that a path leads to. If `node` is null, `parent` is the existing folder that has no
  // child of the last name.
  struct Place {
    std::shared_ptr<Volume> volume;
    std::shared_ptr<Node> parent;  // null for a root
    std::shared_ptr<Node> node;    // null if it does not exist
    std::string name;
    bool ends_in_separator = false;
    size_t bounded_length = 0;  // of the full path; 0 for a verbatim path
  };

  // These are called with the lock held.
  DWORD Locate(std::string_view path, AtEnd at_end, Place* place) const;
  // Stops at a junction that is to be followed and sets `onward` to the path that it leads to.
  DWORD Walk(const PathName& path, AtEnd at_end, Place* place, std::string* onward) const;
  // Locates an existing object. A path that ends in a separator does not lead to a file.
  DWORD LocateExisting(std::string_view path, Place* place) const;
  DWORD Prepare(const Place& place, const OpenMode& mode, std::shared_ptr<Node>* node);
  DWORD Erase(const Place& place);
  std::shared_ptr<Node> Add(Node& parent, std::string_view name, DWORD attributes);
  std::shared_ptr<Node> MakeBelow(const Volume& volume, const std::vector<std::string>& names,
                                  DWORD attributes);
  std::shared_ptr<Node> Find(std::string_view path) const;  // null if there is none
  const Volume& VolumeFor(std::string_view path) const;

  // Return true if the program has the rights; otherwise return false. A parent may grant a right
  // that the node does not.
  bool May(const Place& place, ACCESS_MASK wanted, Intent intent) const;
  bool May(const Volume& volume, const Node& node, ACCESS_MASK wanted, Intent intent) const;
  DWORD CheckChange(const Place& place, const SecurityChange& change) const;
  struct Passed;  // results of propagation, which objects with equal descriptors share
  void PassOn(const Place& folder, const Descriptor& before, SECURITY_INFORMATION lists,
              Passed* passed);

  // Shared with open files, which may outlive this object.
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
