#include "simulator/model/files/files.h"

#include <algorithm>
#include <utility>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/shared_descriptors.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/security.h"

namespace simulator {
namespace {

constexpr size_t kLongestPath = MAX_PATH - 1;
constexpr int kMostJunctions = 63;  // on the way of one path

char UpperLetter(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

// The path that a junction leads to, with the names that are left. Windows puts text to text.
DWORD Redirect(const Node& junction, const PathName& path, size_t walked, std::string* onward) {
  const std::optional<std::string> target = SubstituteName(junction.contents().reparse_data);
  if (!target) return ERROR_CANT_ACCESS_FILE;  // nobody handles such a reparse point
  *onward = *target;
  for (size_t i = walked; i < path.names.size(); ++i) {
    if (!onward->ends_with('\\')) *onward += '\\';
    *onward += path.names[i];
  }
  if (path.ends_in_separator && !onward->ends_with('\\')) *onward += '\\';
  return ERROR_SUCCESS;
}

}  // namespace

FileSystem::FileSystem(const Security& security)
    : security_(security),
      inherited_(std::make_unique<SharedDescriptors>(security.identity())),
      shared_(std::make_shared<Shared>()) {}
FileSystem::~FileSystem() = default;

std::shared_ptr<Volume> FileSystem::AddVolume(Volume volume) {
  auto added = std::make_shared<Volume>(std::move(volume));
  if (!added->root) {
    added->root = std::make_shared<Node>();
    added->root->attributes = FILE_ATTRIBUTE_DIRECTORY;
  }
  const std::lock_guard lock(shared_->mutex);
  inherited_->Complete(*added->root, inherited_->OfRoot());
  volumes_.push_back(added);
  return added;
}

bool FileSystem::Mount(char letter, std::shared_ptr<Volume> volume) {
  const char upper = UpperLetter(letter);
  if (upper == '\0' || !volume || !volume->root) return false;
  const std::lock_guard lock(shared_->mutex);
  return letters_.emplace(upper, std::move(volume)).second;
}

bool FileSystem::MountEmpty(char letter) { return Mount(letter, AddVolume({})); }

void FileSystem::Unmount(char letter) {
  const std::lock_guard lock(shared_->mutex);
  letters_.erase(UpperLetter(letter));
}

std::shared_ptr<Volume> FileSystem::VolumeAt(char letter) const {
  const std::lock_guard lock(shared_->mutex);
  const auto found = letters_.find(UpperLetter(letter));
  return found == letters_.end() ? nullptr : found->second;
}

void FileSystem::SetFreeSpace(char letter, uint64_t bytes) {
  const std::shared_ptr<Volume> volume = VolumeAt(letter);
  if (volume == nullptr) Unsupported("the free space of no volume");
  const std::lock_guard lock(shared_->mutex);
  volume->free = bytes;
}

std::optional<char> FileSystem::LetterOf(const Volume& volume) const {
  const std::lock_guard lock(shared_->mutex);
  for (const auto& [letter, mounted] : letters_) {
    if (mounted.get() == &volume) return letter;
  }
  return std::nullopt;
}

std::optional<char> FileSystem::FreeLetter() const {
  const std::lock_guard lock(shared_->mutex);
  for (char letter = 'C'; letter <= 'Z'; ++letter) {
    if (letters_.count(letter) == 0) return letter;
  }
  return std::nullopt;
}

void FileSystem::Watch(Watcher watcher) {
  const std::lock_guard lock(shared_->mutex);
  shared_->watcher = std::move(watcher);
}

void FileSystem::SetCurrentFolder(std::string full_path) {
  const std::lock_guard lock(shared_->mutex);
  current_folder_ = std::move(full_path);
}

DWORD FileSystem::Locate(std::string_view path, AtEnd at_end, Place* place) const {
  PathName parsed = ParsePath(path, current_folder_);
  if (parsed.error != ERROR_SUCCESS) return parsed.error;
  const bool is_bounded = !parsed.verbatim;
  const size_t length = parsed.length;
  if (length == 0 || (is_bounded && length > kLongestPath)) return ERROR_PATH_NOT_FOUND;
  for (int followed = 0; followed <= kMostJunctions; ++followed) {
    std::string onward;
    const DWORD error = Walk(parsed, at_end, place, &onward);
    if (error != ERROR_SUCCESS) return error;
    if (onward.empty()) {
      place->bounded_length = is_bounded ? length : 0;
      return ERROR_SUCCESS;
    }
    parsed = ParseNtPath(onward);
  }
  return ERROR_CANT_RESOLVE_FILENAME;
}

DWORD FileSystem::Walk(const PathName& path, AtEnd at_end, Place* place,
                       std::string* onward) const {
  if (path.error != ERROR_SUCCESS) return path.error;
  const auto volume = letters_.find(path.letter);
  if (volume == letters_.end()) return ERROR_PATH_NOT_FOUND;
  place->volume = volume->second;
  if (!volume->second->has_medium) return ERROR_NOT_READY;
  if (!std::all_of(path.names.begin(), path.names.end(), IsValidName)) return ERROR_INVALID_NAME;

  *place = {};
  place->volume = volume->second;
  place->node = volume->second->root;
  place->ends_in_separator = path.ends_in_separator;
  for (size_t walked = 0;; ++walked) {
    const bool is_end = walked == path.names.size();
    if (place->node && !place->node->contents().reparse_data.empty() &&
        (!is_end || at_end == AtEnd::kFollow)) {
      return Redirect(*place->node, path, walked, onward);
    }
    if (is_end) return ERROR_SUCCESS;
    if (!place->node || !place->node->IsFolder()) return ERROR_PATH_NOT_FOUND;
    place->parent = place->node;
    place->name = path.names[walked];
    place->node = place->parent->Child(place->name);
  }
}

DWORD FileSystem::LocateExisting(std::string_view path, Place* place) const {
  const DWORD error = Locate(path, AtEnd::kStay, place);
  if (error != ERROR_SUCCESS) return error;
  if (!place->node) return ERROR_FILE_NOT_FOUND;
  if (place->ends_in_separator && !place->node->IsFolder()) return ERROR_INVALID_NAME;
  return ERROR_SUCCESS;
}

std::shared_ptr<Node> FileSystem::Add(Node& parent, std::string_view name, DWORD attributes) {
  std::shared_ptr<Node> node = parent.AddChild(name, attributes);
  node->security = inherited_->Below(parent.security, node->IsFolder());
  return node;
}

std::optional<char> FileSystem::EmptyDrive(std::string_view path) const {
  Place place;
  {
    const std::lock_guard lock(shared_->mutex);
    if (Locate(path, AtEnd::kFollow, &place) != ERROR_NOT_READY) return std::nullopt;
  }
  return LetterOf(*place.volume);
}

UINT FileSystem::DriveType(std::string_view root) const {
  const bool is_root = root.size() >= 2 && root.size() <= 3 && root[1] == ':' &&
                       (root.size() == 2 || root[2] == '\\' || root[2] == '/');
  const std::shared_ptr<Volume> volume = is_root ? VolumeAt(root[0]) : nullptr;
  return volume ? volume->drive_type : DRIVE_NO_ROOT_DIR;
}

std::string FileSystem::FullPath(std::string_view path) const {
  const std::lock_guard lock(shared_->mutex);
  return FullPathName(path, current_folder_);
}

}  // namespace simulator
