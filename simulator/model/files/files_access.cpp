// Opening, making and deleting as the program does it.
#include <utility>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/access.h"

namespace simulator {
namespace {

constexpr size_t kLongestNewFolder = MAX_PATH - 13;  // room for an 8.3 name below it

// What SetFileAttributes hands to the file system; it drops all others.
constexpr DWORD kSettableAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN |
                                      FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                      FILE_ATTRIBUTE_TEMPORARY | FILE_ATTRIBUTE_OFFLINE |
                                      FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

constexpr ACCESS_MASK kWriting = FILE_WRITE_DATA | FILE_APPEND_DATA;

bool IsReadOnly(const Node& node) { return (node.attributes & FILE_ATTRIBUTE_READONLY) != 0; }

ACCESS_MASK AccessOf(const OpenMode& mode) {
  return (mode.read ? DWORD{FILE_GENERIC_READ} : 0) | (mode.write ? DWORD{FILE_GENERIC_WRITE} : 0);
}

DWORD ShareOf(const OpenMode& mode) { return mode.alone ? 0 : FILE_SHARE_READ | FILE_SHARE_WRITE; }

}  // namespace

DWORD FileSystem::Attributes(std::string_view path, DWORD* attributes) const {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = LocateExisting(path, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!May(place, FILE_READ_ATTRIBUTES, Intent::kPlain)) return ERROR_ACCESS_DENIED;
  *attributes = place.node->attributes;
  return ERROR_SUCCESS;
}

DWORD FileSystem::ChangeAttributes(std::string_view path, DWORD attributes) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = LocateExisting(path, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!May(place, FILE_WRITE_ATTRIBUTES, Intent::kBackup)) return ERROR_ACCESS_DENIED;
  Node& node = *place.node;
  if (node.IsFolder() && (attributes & FILE_ATTRIBUTE_TEMPORARY) != 0) {
    return ERROR_INVALID_PARAMETER;
  }
  constexpr DWORD kKept = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  node.attributes = (node.attributes & kKept) | (attributes & kSettableAttributes);
  if (node.attributes == 0) node.attributes = FILE_ATTRIBUTE_NORMAL;
  return ERROR_SUCCESS;
}

DWORD FileSystem::MakeDirectory(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = Locate(path, AtEnd::kStay, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!place.parent) return ERROR_ACCESS_DENIED;
  if (place.node) return ERROR_ALREADY_EXISTS;
  if (place.bounded_length > kLongestNewFolder) return ERROR_FILENAME_EXCED_RANGE;
  if (!May(*place.volume, *place.parent, FILE_ADD_SUBDIRECTORY, Intent::kBackup)) {
    return ERROR_ACCESS_DENIED;
  }
  Add(*place.parent, place.name, FILE_ATTRIBUTE_DIRECTORY);
  return ERROR_SUCCESS;
}

DWORD FileSystem::Erase(const Place& place) {
  if (!place.parent || !May(place, DELETE, Intent::kBackup)) return ERROR_ACCESS_DENIED;
  const Sharing& sharing = place.node->contents().sharing;
  if (sharing.share_deleting < sharing.holders) return ERROR_SHARING_VIOLATION;
  if (sharing.holders > 0) Unsupported("deleting what is open");
  if (IsReadOnly(*place.node)) return ERROR_ACCESS_DENIED;
  if (!place.node->contents().children.empty()) return ERROR_DIR_NOT_EMPTY;
  place.volume->free += place.node->contents().bytes.size();
  place.parent->RemoveChild(place.name);
  return ERROR_SUCCESS;
}

DWORD FileSystem::RemoveDirectory(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = LocateExisting(path, &place);
  if (error != ERROR_SUCCESS) return error;
  return place.node->IsFolder() ? Erase(place) : ERROR_DIRECTORY;
}

DWORD FileSystem::Delete(std::string_view path) {
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = LocateExisting(path, &place);
  if (error != ERROR_SUCCESS) return error;
  return place.node->IsFolder() ? ERROR_ACCESS_DENIED : Erase(place);
}

// Finds, makes or empties the file that is to be opened.
DWORD FileSystem::Prepare(const Place& place, const OpenMode& mode, std::shared_ptr<Node>* node) {
  if (place.node && place.node->IsFolder()) {
    return place.ends_in_separator ? ERROR_PATH_NOT_FOUND : ERROR_ACCESS_DENIED;
  }
  if (!place.node && mode.creation == Creation::kOpenExisting) return ERROR_FILE_NOT_FOUND;
  if (place.ends_in_separator) return ERROR_INVALID_NAME;
  if (!place.node) {
    if (!May(*place.volume, *place.parent, FILE_ADD_FILE, Intent::kPlain)) {
      return ERROR_ACCESS_DENIED;
    }
    *node = Add(*place.parent, place.name, FILE_ATTRIBUTE_ARCHIVE);
    return ERROR_SUCCESS;
  }
  if (!May(place, AccessOf(mode), Intent::kPlain)) return ERROR_ACCESS_DENIED;
  if (IsReadOnly(*place.node) && (mode.write || mode.creation == Creation::kCreateAlways)) {
    return ERROR_ACCESS_DENIED;
  }
  if (!Hold::IsPossible(place.node->contents().sharing, AccessOf(mode), ShareOf(mode))) {
    return ERROR_SHARING_VIOLATION;
  }
  if (place.node->contents().make_bytes && mode.write) {
    Unsupported("writing to a file that makes its bytes as they are read");
  }
  *node = place.node;
  if (mode.creation == Creation::kCreateAlways) {
    place.volume->free += place.node->contents().bytes.size();
    place.node->OwnContents().bytes.clear();
  }
  return ERROR_SUCCESS;
}

DWORD FileSystem::Open(std::string_view path, const OpenMode& mode,
                       std::shared_ptr<OpenFile>* file) {
  std::shared_ptr<OpenFile> opened;  // ends behind the lock, which the end of an open file takes
  const std::lock_guard lock(shared_->mutex);
  Place place;
  DWORD error = Locate(path, AtEnd::kFollow, &place);
  std::shared_ptr<Node> node;
  if (error == ERROR_SUCCESS) error = Prepare(place, mode, &node);
  if (error != ERROR_SUCCESS) return error;
  auto hold = std::make_unique<Hold>(shared_, node, AccessOf(mode), ShareOf(mode));
  opened =
      std::make_shared<OpenFile>(shared_, place.volume, std::move(hold), std::string(path), mode);
  file->swap(opened);
  return ERROR_SUCCESS;
}

DWORD FileSystem::OpenHandle(std::string_view path, const HandleMode& mode,
                             std::shared_ptr<OpenNode>* node) {
  std::shared_ptr<OpenNode> opened;  // ends behind the lock, as in Open
  const std::lock_guard lock(shared_->mutex);
  Place place;
  const DWORD error = Locate(path, mode.open_reparse_point ? AtEnd::kStay : AtEnd::kFollow, &place);
  if (error != ERROR_SUCCESS) return error;
  if (!place.node) return ERROR_FILE_NOT_FOUND;
  const bool is_folder = place.node->IsFolder();
  if (is_folder && !mode.backup_semantics) {
    return place.ends_in_separator ? ERROR_PATH_NOT_FOUND : ERROR_ACCESS_DENIED;
  }
  if (!is_folder && place.ends_in_separator) return ERROR_INVALID_NAME;
  const ACCESS_MASK access = MapGeneric(mode.access) | SYNCHRONIZE | FILE_READ_ATTRIBUTES;
  const Intent intent = mode.backup_semantics ? Intent::kBackup : Intent::kPlain;
  if (!May(place, access, intent)) return ERROR_ACCESS_DENIED;
  if (!is_folder && IsReadOnly(*place.node) && (access & kWriting) != 0) {
    return ERROR_ACCESS_DENIED;
  }
  if (!Hold::IsPossible(place.node->contents().sharing, access, mode.share))
    return ERROR_SHARING_VIOLATION;
  opened = std::make_shared<OpenNode>(
      place.volume, std::make_unique<Hold>(shared_, place.node, access, mode.share), access);
  node->swap(opened);
  return ERROR_SUCCESS;
}

DWORD FileSystem::SetReparsePoint(const OpenNode& node, std::string_view buffer) {
  const std::lock_guard lock(shared_->mutex);
  Node& held = node.Held();
  if (!node.On().KeepsNtfsData()) return ERROR_INVALID_FUNCTION;
  if ((node.Access() & (FILE_WRITE_DATA | FILE_WRITE_ATTRIBUTES)) == 0) return ERROR_ACCESS_DENIED;
  const DWORD error = CheckReparseBuffer(buffer);
  if (error != ERROR_SUCCESS) return error;
  if (!held.IsFolder()) return ERROR_DIRECTORY;
  if (!held.contents().reparse_data.empty() &&
      ReparseTag(held.contents().reparse_data) != ReparseTag(buffer)) {
    return ERROR_REPARSE_TAG_MISMATCH;
  }
  // A root always holds the file system's own files.
  if (!held.contents().children.empty() || &held == node.On().root.get())
    return ERROR_DIR_NOT_EMPTY;
  held.MakeReparsePoint(std::string(buffer));
  return ERROR_SUCCESS;
}

}  // namespace simulator
