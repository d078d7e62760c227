// Descriptors of nodes, inherited or set. Equal descriptors share one object.
#ifndef SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_
#define SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <unordered_map>

namespace simulator {

struct Descriptor;
struct Identity;
struct Node;

// Not thread-safe.
class SharedDescriptors {
 public:
  using Shared = std::shared_ptr<const Descriptor>;

  // `creator` is the creator of all nodes; it must outlive this object.
  explicit SharedDescriptors(const Identity& creator);

  // Returns the descriptor that Windows assigns to the root of a new NTFS volume.
  const Shared& OfRoot() const { return root_; }

  // Returns the descriptor of a new file or folder.
  Shared Below(const Shared& parent, bool is_folder);

  // Returns an object equal to `descriptor`: one that this has returned and that is still in use,
  // or a new one. The lists must not be longer than a list can be.
  Shared Of(Descriptor descriptor);

  // Assigns a descriptor to `node` and to every node below it that has none: `missing` to `node`
  // itself, and to the others what their parents let inherit.
  void Complete(Node& node, const Shared& missing);

 private:
  using Children = std::array<Shared, 2>;  // a file's and a folder's; null until first requested

  const Identity& creator_;
  const Shared root_;
  std::map<Shared, Children> children_;  // by the parent's, which this keeps alive
  std::unordered_multimap<size_t, std::weak_ptr<const Descriptor>> known_;  // by a hash
  size_t most_known_ = 1024;  // those out of use are forgotten when there are so many
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_SHARED_DESCRIPTORS_H_
