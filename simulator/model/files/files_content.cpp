// What tests, scenarios and tools do to the files of a simulated server.
#include <utility>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/descriptor.h"

namespace simulator {
namespace {

void SetBytes(Node& node, std::string bytes) {
  if (bytes.empty() && node.contents().bytes.empty() && !node.contents().make_bytes) return;
  NodeContents& contents = node.OwnContents();
  contents.bytes = std::move(bytes);
  contents.make_bytes = nullptr;
}

const std::string& BytesOf(const Node& node) {
  if (node.contents().make_bytes)
    Unsupported("all the bytes of a file that makes them as they are read");
  return node.contents().bytes;
}

}  // namespace

// The node with that path, made with all its parents where they are missing.
std::shared_ptr<Node> FileSystem::MakeBelow(const Volume& volume,
                                            const std::vector<std::string>& names,
                                            DWORD attributes) {
  std::shared_ptr<Node> node = volume.root;
  for (size_t i = 0; i < names.size() && node; ++i) {
    const bool is_last = i + 1 == names.size();
    const std::string& name = names[i];
    if (!node->IsFolder()) Unsupported("a file or folder below a file: " + name);
    if (!node->contents().reparse_data.empty())
      Unsupported("a file or folder below a junction: " + name);
    if (!IsValidName(name)) Unsupported("the file name " + name);
    const std::shared_ptr<Node> child = node->Child(name);
    node = child ? child : Add(*node, name, is_last ? attributes : FILE_ATTRIBUTE_DIRECTORY);
  }
  if (!node || ((node->attributes ^ attributes) & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    Unsupported("a file in place of a folder, or a folder in place of a file");
  }
  return node;
}

std::shared_ptr<Node> FileSystem::Find(std::string_view path) const {
  Place place;
  return Locate(path, AtEnd::kStay, &place) == ERROR_SUCCESS ? place.node : nullptr;
}

bool FileSystem::Exists(std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  return Find(path) != nullptr;
}

void FileSystem::MakeDirectories(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  MakeBelow(VolumeFor(path), ParsePath(path, current_folder_).names, FILE_ATTRIBUTE_DIRECTORY);
}

void FileSystem::Write(std::string_view path, std::string bytes) {
  const std::lock_guard lock(shared_->mutex);
  const std::vector<std::string> names = ParsePath(path, current_folder_).names;
  SetBytes(*MakeBelow(VolumeFor(path), names, FILE_ATTRIBUTE_ARCHIVE), std::move(bytes));
}

void FileSystem::WriteMade(std::string_view path, MakeBytes make_bytes) {
  const std::lock_guard lock(shared_->mutex);
  const std::vector<std::string> names = ParsePath(path, current_folder_).names;
  Node& node = *MakeBelow(VolumeFor(path), names, FILE_ATTRIBUTE_ARCHIVE);
  SetBytes(node, {});
  node.OwnContents().make_bytes = std::move(make_bytes);
}

void FileSystem::WriteOn(const Volume& volume, std::string_view path, std::string bytes) {
  const std::lock_guard lock(shared_->mutex);
  SetBytes(*MakeBelow(volume, NamesBelowRoot(path), FILE_ATTRIBUTE_ARCHIVE), std::move(bytes));
}

std::optional<std::string> FileSystem::Read(std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  const std::shared_ptr<Node> node = Find(path);
  if (!node || node->IsFolder()) return std::nullopt;
  return BytesOf(*node);
}

std::optional<std::string> FileSystem::ReadOn(const Volume& volume, std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  const Node* const node = volume.root->Find(path);
  if (node == nullptr || node->IsFolder()) return std::nullopt;
  return BytesOf(*node);
}

void FileSystem::SetAttributes(std::string_view path, DWORD attributes) {
  const std::lock_guard lock(shared_->mutex);
  const std::shared_ptr<Node> node = Find(path);
  if (!node) Unsupported("attributes of a missing file: " + std::string(path));
  constexpr DWORD kKept = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  node->attributes = (attributes & ~kKept) | (node->attributes & kKept);
}

std::vector<std::string> FileSystem::List(std::string_view folder) const {
  const std::lock_guard lock(shared_->mutex);
  std::vector<std::string> names;
  const std::shared_ptr<Node> node = Find(folder);
  if (!node) return names;
  for (const std::shared_ptr<Node>& child : node->contents().children) {
    names.push_back(child->name);
  }
  return names;
}

void FileSystem::Remove(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  if (Locate(path, AtEnd::kStay, &place) != ERROR_SUCCESS || !place.node) return;
  if (!place.parent) Unsupported("removing the root " + std::string(path));
  place.parent->RemoveChild(place.name);
}

void FileSystem::SetDescriptor(std::string_view path, const Descriptor& descriptor) {
  const std::lock_guard lock(shared_->mutex);
  const std::shared_ptr<Node> node = Find(path);
  if (!node) Unsupported("the descriptor of a missing file: " + std::string(path));
  node->security = std::make_shared<const Descriptor>(descriptor);
}

std::optional<Descriptor> FileSystem::DescriptorOf(std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  if (Locate(path, AtEnd::kStay, &place) != ERROR_SUCCESS || !place.node) return std::nullopt;
  if (!place.volume->KeepsNtfsData()) return std::nullopt;
  return *place.node->security;
}

void FileSystem::MakeJunction(std::string_view path, std::string_view target) {
  const std::lock_guard lock(shared_->mutex);
  const std::vector<std::string> names = ParsePath(path, current_folder_).names;
  Node& node = *MakeBelow(VolumeFor(path), names, FILE_ATTRIBUTE_DIRECTORY);
  if (!node.contents().children.empty())
    Unsupported("a junction in place of a folder that is not empty");
  node.MakeReparsePoint(JunctionBuffer(target));
}

std::optional<std::string> FileSystem::JunctionTarget(std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  const std::shared_ptr<Node> node = Find(path);
  return node ? SubstituteName(node->contents().reparse_data) : std::nullopt;
}

const Volume& FileSystem::VolumeFor(std::string_view path) const {
  const auto found = letters_.find(ParsePath(path, current_folder_).letter);
  if (found == letters_.end()) Unsupported("no volume is mounted for " + std::string(path));
  return *found->second;
}

}  // namespace simulator
