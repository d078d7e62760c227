// Self-relative security descriptors turned into absolute ones.
#include <windows.h>

#include <cstddef>
#include <cstring>
#include <optional>

#include "simulator/api/call.h"
#include "simulator/model/unsupported.h"

using simulator::Call;
using simulator::Unsupported;

namespace {

struct Part {
  const char* bytes = nullptr;  // null, of no size, when the descriptor lacks it
  DWORD size = 0;
};

struct Parts {
  Part owner;
  Part group;
  Part dacl;
  Part sacl;
};

template <typename Header>
Header HeaderAt(const char* bytes, size_t size = sizeof(Header)) {
  Header header{};
  std::memcpy(&header, bytes, size);
  return header;
}

// Nothing for what is no SID. So below: the parts say how long they are, and nothing says where the
// memory ends.
std::optional<Part> SidAt(const char* descriptor, DWORD offset) {
  constexpr size_t kFixed = offsetof(SID, SubAuthority);
  if (offset == 0) return Part{};
  const SID sid = HeaderAt<SID>(descriptor + offset, kFixed);
  if (sid.Revision != SID_REVISION || sid.SubAuthorityCount > SID_MAX_SUB_AUTHORITIES) {
    return std::nullopt;
  }
  const size_t size = kFixed + sid.SubAuthorityCount * sizeof(DWORD);
  return Part{descriptor + offset, static_cast<DWORD>(size)};
}

std::optional<Part> AclAt(const char* descriptor, DWORD offset, bool present) {
  if (offset == 0 || !present) return Part{};
  const ACL acl = HeaderAt<ACL>(descriptor + offset);
  if (acl.AclRevision < ACL_REVISION || acl.AclRevision > ACL_REVISION_DS ||
      acl.AclSize < sizeof(ACL)) {
    return std::nullopt;
  }
  return Part{descriptor + offset, acl.AclSize};
}

std::optional<Parts> PartsOf(const char* descriptor, const SECURITY_DESCRIPTOR_RELATIVE& header) {
  if (header.Revision != SECURITY_DESCRIPTOR_REVISION) return std::nullopt;
  const std::optional<Part> owner = SidAt(descriptor, header.Owner);
  const std::optional<Part> group = SidAt(descriptor, header.Group);
  const std::optional<Part> dacl =
      AclAt(descriptor, header.Dacl, (header.Control & SE_DACL_PRESENT) != 0);
  const std::optional<Part> sacl =
      AclAt(descriptor, header.Sacl, (header.Control & SE_SACL_PRESENT) != 0);
  if (!owner || !group || !dacl || !sacl) return std::nullopt;
  return Parts{*owner, *group, *dacl, *sacl};
}

template <typename Buffer>
Buffer* Copied(const Part& part, Buffer* buffer) {
  if (part.size == 0) return nullptr;
  if (buffer == nullptr) Unsupported("MakeAbsoluteSD: no buffer");
  std::memcpy(buffer, part.bytes, part.size);
  return buffer;
}

}  // namespace

BOOL WINAPI MakeAbsoluteSD(PSECURITY_DESCRIPTOR self_relative, PSECURITY_DESCRIPTOR absolute,
                           LPDWORD absolute_size, PACL dacl, LPDWORD dacl_size, PACL sacl,
                           LPDWORD sacl_size, PSID owner, LPDWORD owner_size, PSID primary_group,
                           LPDWORD primary_group_size) {
  constexpr DWORD kAbsoluteSize = sizeof(SECURITY_DESCRIPTOR);
  if (self_relative == nullptr) Unsupported("MakeAbsoluteSD: no descriptor");
  for (const DWORD* size : {absolute_size, dacl_size, sacl_size, owner_size, primary_group_size}) {
    if (size == nullptr) Unsupported("MakeAbsoluteSD: nowhere to put a size");
  }
  const Call call("MakeAbsoluteSD", *absolute_size, *dacl_size, *sacl_size, *owner_size,
                  *primary_group_size);
  if (call.fails()) return FALSE;
  const char* const bytes = static_cast<const char*>(self_relative);
  const auto header = HeaderAt<SECURITY_DESCRIPTOR_RELATIVE>(bytes);
  if ((header.Control & SE_SELF_RELATIVE) == 0) return call.Done(ERROR_BAD_DESCRIPTOR_FORMAT);
  const std::optional<Parts> parts = PartsOf(bytes, header);
  if (!parts) return call.Done(ERROR_INVALID_SECURITY_DESCR);

  if (*absolute_size < kAbsoluteSize || *dacl_size < parts->dacl.size ||
      *sacl_size < parts->sacl.size || *owner_size < parts->owner.size ||
      *primary_group_size < parts->group.size) {
    *absolute_size = kAbsoluteSize;
    *dacl_size = parts->dacl.size;
    *sacl_size = parts->sacl.size;
    *owner_size = parts->owner.size;
    *primary_group_size = parts->group.size;
    return call.Done(ERROR_INSUFFICIENT_BUFFER);
  }
  if (absolute == nullptr) Unsupported("MakeAbsoluteSD: no buffer");
  SECURITY_DESCRIPTOR made = {};
  made.Revision = header.Revision;
  made.Sbz1 = header.Sbz1;
  made.Control = static_cast<WORD>(header.Control & ~SE_SELF_RELATIVE);
  made.Owner = Copied(parts->owner, owner);
  made.Group = Copied(parts->group, primary_group);
  made.Sacl = Copied(parts->sacl, sacl);
  made.Dacl = Copied(parts->dacl, dacl);
  std::memcpy(absolute, &made, sizeof(made));
  return call.Succeed(TRUE);
}
