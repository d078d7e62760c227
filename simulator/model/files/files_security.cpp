// Who may do what to a file, and how its descriptor changes.
#include <cstddef>
#include <utility>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/shared_descriptors.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/inheritance.h"
#include "simulator/model/security/sacl_entries.h"
#include "simulator/model/security/security.h"

namespace simulator {
namespace {

// What the two privileges are worth to those who open a file to back it up or to restore it.
// https://learn.microsoft.com/windows/win32/secauthz/privilege-constants
constexpr ACCESS_MASK kBackupRights = READ_CONTROL | FILE_GENERIC_READ | FILE_TRAVERSE;
constexpr ACCESS_MASK kRestoreRights =
    WRITE_DAC | WRITE_OWNER | FILE_GENERIC_WRITE | FILE_ADD_FILE | FILE_ADD_SUBDIRECTORY | DELETE;

constexpr SECURITY_INFORMATION kLists = DACL_SECURITY_INFORMATION | SACL_SECURITY_INFORMATION;

bool Asks(const SecurityChange& change, SECURITY_INFORMATION part) {
  return (change.information & part) != 0;
}

bool AsksBoth(const SecurityChange& change, SECURITY_INFORMATION parts) {
  return (change.information & parts) == parts;
}

// Inherited entries and split ones may make a list longer than any can be. Few lists are so long
// that they must be laid out to tell.
bool Fits(const std::optional<Acl>& acl) {
  constexpr size_t kLargestSid =
      offsetof(SID, SubAuthority) + SID_MAX_SUB_AUTHORITIES * sizeof(DWORD);
  constexpr size_t kLargestPlainAce =
      sizeof(ACE_HEADER) + 2 * sizeof(DWORD) + 2 * sizeof(Guid) + kLargestSid;
  if (!acl) return true;
  size_t most = sizeof(ACL);
  for (const Ace& ace : acl->aces) most += kLargestPlainAce + ace.data.size();
  return most <= kLargestAcl || AclSize(*acl) <= kLargestAcl;
}

bool Fits(const Descriptor& descriptor) { return Fits(descriptor.dacl) && Fits(descriptor.sacl); }

}  // namespace

struct FileSystem::Passed {
  std::map<std::tuple<SharedDescriptors::Shared, SharedDescriptors::Shared, bool>,
           SharedDescriptors::Shared>
      made;
};

bool FileSystem::May(const Volume& volume, const Node& node, ACCESS_MASK wanted,
                     Intent intent) const {
  if (!volume.KeepsNtfsData() || Grants(*node.security, security_.identity(), wanted)) return true;
  ACCESS_MASK privileged = 0;
  if (intent == Intent::kBackup) {
    if (security_.Enabled(SE_BACKUP_NAME)) privileged |= kBackupRights;
    if (security_.Enabled(SE_RESTORE_NAME)) privileged |= kRestoreRights;
  }
  if (security_.Enabled(SE_TAKE_OWNERSHIP_NAME)) privileged |= WRITE_OWNER;
  const ACCESS_MASK rest = wanted & ~privileged;
  return rest != wanted && (rest == 0 || Grants(*node.security, security_.identity(), rest));
}

bool FileSystem::May(const Place& place, ACCESS_MASK wanted, Intent intent) const {
  if (May(*place.volume, *place.node, wanted, intent)) return true;
  if (!place.parent) return false;
  ACCESS_MASK by_parent = 0;
  if ((wanted & FILE_READ_ATTRIBUTES) != 0 &&
      May(*place.volume, *place.parent, FILE_LIST_DIRECTORY, intent)) {
    by_parent |= FILE_READ_ATTRIBUTES;
  }
  if ((wanted & DELETE) != 0 && May(*place.volume, *place.parent, FILE_DELETE_CHILD, intent)) {
    by_parent |= DELETE;
  }
  const ACCESS_MASK rest = wanted & ~by_parent;
  return rest != wanted && (rest == 0 || May(*place.volume, *place.node, rest, intent));
}

// The object is opened as CreateFile does it with FILE_FLAG_BACKUP_SEMANTICS: an enabled
// SeRestorePrivilege stands for WRITE_DAC and WRITE_OWNER. Whoever sets a SACL needs
// SeSecurityPrivilege, as the documentation says, although the two privileges for backups let
// others open one.
DWORD FileSystem::CheckChange(const Place& place, const SecurityChange& change) const {
  if (Asks(change, SACL_SECURITY_INFORMATION) && !security_.Enabled(SE_SECURITY_NAME)) {
    return ERROR_PRIVILEGE_NOT_HELD;
  }
  ACCESS_MASK wanted = 0;
  if (Asks(change, OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION)) wanted |= WRITE_OWNER;
  if (Asks(change, DACL_SECURITY_INFORMATION)) wanted |= WRITE_DAC;
  if (!May(place, wanted, Intent::kBackup)) return ERROR_ACCESS_DENIED;

  if (!Asks(change, OWNER_SECURITY_INFORMATION)) return ERROR_SUCCESS;
  const Identity& identity = security_.identity();
  const bool may_own = change.parts.owner == identity.user ||
                       identity.may_own.contains(*change.parts.owner) ||
                       security_.Enabled(SE_RESTORE_NAME);
  return may_own ? ERROR_SUCCESS : ERROR_INVALID_OWNER;
}

DWORD FileSystem::SetSecurity(std::string_view path, const SecurityChange& change) {
  if ((Asks(change, OWNER_SECURITY_INFORMATION) && !change.parts.owner) ||
      (Asks(change, GROUP_SECURITY_INFORMATION) && !change.parts.group) ||
      AsksBoth(change,
               PROTECTED_DACL_SECURITY_INFORMATION | UNPROTECTED_DACL_SECURITY_INFORMATION) ||
      AsksBoth(change,
               PROTECTED_SACL_SECURITY_INFORMATION | UNPROTECTED_SACL_SECURITY_INFORMATION)) {
    return ERROR_INVALID_PARAMETER;
  }
  const std::lock_guard lock(shared_->mutex);
  Place place;
  DWORD error = LocateExisting(path, &place);
  if (error == ERROR_SUCCESS) error = CheckChange(place, change);
  if (error != ERROR_SUCCESS) return error;
  // For a file system without descriptors the I/O manager says that all went well.
  if (!place.volume->KeepsNtfsData()) return ERROR_SUCCESS;

  const SharedDescriptors::Shared before = place.node->security;
  Descriptor after = *before;
  if (Asks(change, OWNER_SECURITY_INFORMATION)) after.owner = change.parts.owner;
  if (Asks(change, GROUP_SECURITY_INFORMATION)) after.group = change.parts.group;
  const bool is_folder = place.node->IsFolder();
  for (const ListKind& kind : kListKinds) {
    if (!Asks(change, kind.set)) continue;
    StoreList(kind, change.information, change.parts.*kind.list, is_folder, &after);
    if (place.parent) Reinherit(kind, *WithoutOwnBits(place.parent->security), is_folder, &after);
  }
  if (Asks(change, SACL_SECURITY_INFORMATION)) KeepOwnBits(before->sacl, &after);
  if (!Fits(after)) return ERROR_INVALID_ACL;
  place.node->security = inherited_->Of(std::move(after));
  const SECURITY_INFORMATION lists = change.information & kLists;
  if (lists != 0 && is_folder) {
    Passed passed;
    PassOn(place, *before, lists, &passed);
  }
  return ERROR_SUCCESS;
}

// Below a folder whose lists were `before`, all that inherits gets its entries anew: down to where
// nothing changes any more, and but for what the program may not write. Junctions are nodes like
// others; what they lead to lies elsewhere.
void FileSystem::PassOn(const Place& folder, const Descriptor& before, SECURITY_INFORMATION lists,
                        Passed* passed) {
  for (const std::shared_ptr<Node>& child : folder.node->contents().children) {
    Place place;
    place.volume = folder.volume;
    place.parent = folder.node;
    place.node = child;
    const bool is_folder = child->IsFolder();
    SharedDescriptors::Shared& made =
        passed->made[{child->security, folder.node->security, is_folder}];
    if (!made) {
      Descriptor after = *child->security;
      for (const ListKind& kind : kListKinds) {
        if ((lists & kind.set) == 0) continue;
        MarkInherited(kind, before, is_folder, &after);
        Reinherit(kind, *WithoutOwnBits(folder.node->security), is_folder, &after);
      }
      if ((lists & SACL_SECURITY_INFORMATION) != 0) KeepOwnBits(child->security->sacl, &after);
      made = after == *child->security || !Fits(after) ? child->security
                                                       : inherited_->Of(std::move(after));
    }
    if (made == child->security || !May(place, WRITE_DAC, Intent::kBackup)) continue;
    const SharedDescriptors::Shared child_before = std::exchange(child->security, made);
    if (is_folder) PassOn(place, *child_before, lists, passed);
  }
}

}  // namespace simulator
