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
#include <tuple>
#include <vector>

#include "simulator/model/descriptor.h"
#include "simulator/model/made_bytes.h"
#include "simulator/model/path_name.h"
#include "simulator/model/shared_descriptors.h"
#include "simulator/model/volume.h"

namespace simulator {

class Security;
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

// What SetNamedSecurityInfo sets. Only the parts that `information` names count, and no control
// word; a list that is not there is a null one.
struct SecurityChange {
  SECURITY_INFORMATION information = 0;
  Descriptor parts;
};

class Files {
 public:
  // `security` tells whom access is checked for; it outlives this.
  explicit Files(const Security& security);
  ~Files();

  // Volumes and letters ('A' to 'Z'; either case is taken, upper case is given). A letter moves at
  // any time: look-ups see it at once, open files keep their volume. A volume may come with a tree
  // of its own under `root`: nodes without a descriptor get what their parents let inherit, a root
  // the descriptor that Windows formats NTFS with. It need not be mounted; its nodes can be walked.
  std::shared_ptr<Volume> AddVolume(Volume volume);
  bool Mount(char letter, std::shared_ptr<Volume> volume);  // false when the letter is taken
  void Unmount(char letter);
  std::shared_ptr<Volume> VolumeAt(char letter) const;  // null when free
  std::optional<char> LetterOf(const Volume& volume) const;
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

  // Called with what the program writes to a file, as it writes it, under the lock of this object.
  using Watcher = std::function<void(const std::string& path, std::string_view bytes)>;
  void Watch(Watcher watcher);

  // Where relative paths start; the system directory at first.
  void SetCurrentFolder(std::string full_path);

  // For tests, scenarios and tools. Missing parents are made. What Windows would refuse ends the
  // process, but for questions about what is not there and for rights, which nobody asks for.
  // Junctions at the end of a path are not followed.
  bool Exists(std::string_view path) const;
  void MakeDirectories(std::string_view path);
  void Write(std::string_view path, std::string bytes);
  // A file that is only to be read, by the program alone.
  void WriteMade(std::string_view path, MakeBytes make_bytes);
  // As Write on a volume that need not be mounted; the path starts behind the root: "a\b".
  void WriteOn(const Volume& volume, std::string_view path, std::string bytes);
  std::optional<std::string> Read(std::string_view path) const;
  std::optional<std::string> ReadOn(const Volume& volume, std::string_view path) const;
  void SetAttributes(std::string_view path, DWORD attributes);
  std::vector<std::string> List(std::string_view folder) const;  // names, sorted
  void Remove(std::string_view path);                            // with all below it

  // Of what lies there, with nothing passed on to what is below. A volume that is not NTFS keeps
  // none.
  void SetDescriptor(std::string_view path, const Descriptor& descriptor);
  std::optional<Descriptor> DescriptorOf(std::string_view path) const;
  // Makes a folder or takes an empty one. The target is a full path: "D:\Data".
  void MakeJunction(std::string_view path, std::string_view target);
  // "\??\D:\Data"; nothing when there is no junction.
  std::optional<std::string> JunctionTarget(std::string_view path) const;

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
  using Passed = std::map<std::tuple<SharedDescriptors::Shared, SharedDescriptors::Shared, bool>,
                          SharedDescriptors::Shared>;
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
  SharedDescriptors inherited_;
  const std::shared_ptr<Shared> shared_;
  std::string current_folder_ = "C:\\Windows\\system32";
  std::vector<std::shared_ptr<Volume>> volumes_;
  std::map<char, std::shared_ptr<Volume>> letters_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_H_
