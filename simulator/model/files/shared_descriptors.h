// Descriptors that nodes get from their parents, one object for all that get the same.
#ifndef SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_
#define SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_

#include <array>
#include <map>
#include <memory>

namespace simulator {

struct Descriptor;
struct Identity;
struct Node;

// Not thread-safe.
class SharedDescriptors {
 public:
  using Shared = std::shared_ptr<const Descriptor>;

  // `creator` makes all nodes; it outlives this.
  explicit SharedDescriptors(const Identity& creator);

  // Of a volume's root as Windows formats NTFS.
  const Shared& OfRoot() const { return root_; }

  // Of a new file or folder.
  Shared Below(const Shared& parent, bool is_folder);

  // Gives `node` and all below it what they lack: `missing` or what their parents let inherit.
  void Complete(Node& node, const Shared& missing);

 private:
  using Children = std::array<Shared, 2>;  // a file's and a folder's; null when not yet asked for

  const Identity& creator_;
  const Shared root_;
  std::map<Shared, Children> children_;  // by the parent's, which lives on in it
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_
