#include "simulator/model/files.h"

#include <algorithm>
#include <utility>

#include "simulator/model/node.h"
#include "simulator/model/open_file.h"
#include "simulator/model/path_name.h"

namespace simulator {
namespace {

constexpr size_t kLongestPath = MAX_PATH - 1;
constexpr size_t kLongestNewFolder = MAX_PATH - 13;  // room for an 8.3 name below it

bool IsReadOnly(const Node& node) { return (node.attributes & FILE_ATTRIBUTE_READONLY) != 0; }

char UpperLetter(char letter) {
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

}  // namespace

Files::Files() : shared_(std::make_shared<Shared>()) {}
Files::~Files() = default;

std::shared_ptr<Volume> Files::AddVolume(Volume volume) {
  auto added = std::make_shared<Volume>(std::move(volume));
  if (!added->root) {
    added->root = std::make_shared<Node>();
    added->root->attributes = FILE_ATTRIBUTE_DIRECTORY;
  }
  const std::lock_guard lock(shared_->mutex);
  volumes_.push_back(added);
  return added;
}

bool Files::Mount(char letter, std::shared_ptr<Volume> volume) {
  const char upper = UpperLetter(letter);
  if (upper == '\0' || !volume || !volume->root) return false;
  const std::lock_guard lock(shared_->mutex);
  return letters_.emplace(upper, std::move(volume)).second;
}

void Files::Unmount(char letter) {
  const std::lock_guard lock(shared_->mutex);
  letters_.erase(UpperLetter(letter));
}

std::shared_ptr<Volume> Files::VolumeAt(char letter) const {
  const std::lock_guard lock(shared_->mutex);
  const auto found = letters_.find(UpperLetter(letter));
  return found == letters_.end() ? nullptr : found->second;
}

std::optional<char> Files::LetterOf(const Volume& volume) const {
  const std::lock_guard lock(shared_->mutex);
  for (const auto& [letter, mounted] : letters_) {
    if (mounted.get() == &volume) return letter;
  }
  return std::nullopt;
}

std::optional<char> Files::FreeLetter() const {
  const std::lock_guard lock(shared_->mutex);
  for (char letter = 'C'; letter <= 'Z'; ++letter) {
    if (letters_.count(letter) == 0) return letter;
  }
  return std::nullopt;
}

void Files::Watch(Watcher watcher) {
  const std::lock_guard lock(shared_->mutex);
  shared_->watcher = std::move(watcher);
}

void Files::SetCurrentFolder(std::string full_path) {
  const std::lock_guard lock(shared_->mutex);
  current_folder_ = std::move(full_path);
}

DWORD Files::Locate(std::string_view path, Place* place) const {
  const PathName parsed = ParsePath(path, current_folder_);
  if (parsed.length == 0 || parsed.length > kLongestPath) return ERROR_PATH_NOT_FOUND;
  const auto volume = letters_.find(parsed.letter);
  if (volume == letters_.end()) return ERROR_PATH_NOT_FOUND;
  if (!std::all_of(parsed.names.begin(), parsed.names.end(), IsValidName)) {
    return ERROR_INVALID_NAME;
  }

  place->volume = volume->second;
  place->node = volume->second->root;
  place->ends_in_separator = parsed.ends_in_separator;
  place->length = parsed.length;
  for (const std::string& name : parsed.names) {
    if (!place->node || !place->node->IsFolder()) return ERROR_PATH_NOT_FOUND;
    place->parent = place->node;
    place->node = place->parent->Child(name);
    place->name = name;
  }
  return ERROR_SUCCESS;
}

DWORD Files::Attributes(std::string_view path, DWORD* attributes) const {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = Locate(path, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!place.node) return ERROR_FILE_NOT_FOUND;
  if (place.ends_in_separator && !place.node->IsFolder()) return ERROR_INVALID_NAME;
  *attributes = place.node->attributes;
  return ERROR_SUCCESS;
}

DWORD Files::MakeDirectory(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = Locate(path, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!place.parent) return ERROR_ACCESS_DENIED;
  if (place.node) return ERROR_ALREADY_EXISTS;
  if (place.length > kLongestNewFolder) return ERROR_FILENAME_EXCED_RANGE;
  place.parent->AddChild(place.name, FILE_ATTRIBUTE_DIRECTORY);
  return ERROR_SUCCESS;
}

DWORD Files::Delete(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = Locate(path, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!place.node) return ERROR_FILE_NOT_FOUND;
  if (place.node->IsFolder()) return ERROR_ACCESS_DENIED;
  if (place.ends_in_separator) return ERROR_INVALID_NAME;
  if (place.node->holders > 0) return ERROR_SHARING_VIOLATION;
  if (IsReadOnly(*place.node)) return ERROR_ACCESS_DENIED;
  place.volume->free += place.node->bytes.size();
  place.parent->children.erase(NameKey(place.name));
  return ERROR_SUCCESS;
}

// Finds, makes or empties the file that is to be opened.
DWORD Files::Prepare(const Place& place, const OpenMode& mode, std::shared_ptr<Node>* node) {
  if (place.node && place.node->IsFolder()) {
    return place.ends_in_separator ? ERROR_PATH_NOT_FOUND : ERROR_ACCESS_DENIED;
  }
  if (!place.node && mode.creation == Creation::kOpenExisting) return ERROR_FILE_NOT_FOUND;
  if (place.ends_in_separator) return ERROR_INVALID_NAME;
  if (!place.node) {
    *node = place.parent->AddChild(place.name, FILE_ATTRIBUTE_ARCHIVE);
    return ERROR_SUCCESS;
  }
  if (IsReadOnly(*place.node) && (mode.write || mode.creation == Creation::kCreateAlways)) {
    return ERROR_ACCESS_DENIED;
  }
  if (place.node->held_alone || (mode.alone && place.node->holders > 0)) {
    return ERROR_SHARING_VIOLATION;
  }
  *node = place.node;
  if (mode.creation == Creation::kCreateAlways) {
    place.volume->free += place.node->bytes.size();
    place.node->bytes.clear();
  }
  return ERROR_SUCCESS;
}

DWORD Files::Open(std::string_view path, const OpenMode& mode, std::shared_ptr<OpenFile>* file) {
  std::shared_ptr<OpenFile> opened;
  {
    const std::lock_guard lock(shared_->mutex);
    Place place;
    DWORD error = Locate(path, &place);
    std::shared_ptr<Node> node;
    if (error == ERROR_SUCCESS) error = Prepare(place, mode, &node);
    if (error != ERROR_SUCCESS) return error;
    opened = std::make_shared<OpenFile>(shared_, place.volume, node, std::string(path), mode);
  }
  // What `file` held before may be an open file, whose end takes the lock.
  *file = std::move(opened);
  return ERROR_SUCCESS;
}

UINT Files::DriveType(std::string_view root) const {
  const bool is_root = root.size() >= 2 && root.size() <= 3 && root[1] == ':' &&
                       (root.size() == 2 || root[2] == '\\' || root[2] == '/');
  const std::shared_ptr<Volume> volume = is_root ? VolumeAt(root[0]) : nullptr;
  return volume ? volume->drive_type : DRIVE_NO_ROOT_DIR;
}

}  // namespace simulator
