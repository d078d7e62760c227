// Self-relative security descriptors turned into absolute ones.
#include <windows.h>

#include <cstring>
#include <optional>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/api/security_parts.h"
#include "simulator/model/security/descriptor.h"

using simulator::Call;
using simulator::UnsupportedCall;

namespace {

// Empty where the descriptor lacks the part.
struct Parts {
  std::string_view owner;
  std::string_view group;
  std::string_view dacl;
  std::string_view sacl;
};

// Nothing for what is no SID.
std::optional<std::string_view> SidAt(const char* descriptor, DWORD offset) {
  if (offset == 0) return std::string_view();
  const std::string_view sid = simulator::SidBytesAt(descriptor + offset);
  return simulator::ReadSid(sid) ? std::optional(sid) : std::nullopt;
}

// Nothing for what is no list; its entries are not looked at.
std::optional<std::string_view> AclAt(const char* descriptor, DWORD offset, bool present) {
  if (offset == 0 || !present) return std::string_view();
  const std::string_view acl = simulator::AclBytesAt(descriptor + offset);
  const auto revision = simulator::HeaderAt<ACL>(descriptor + offset).AclRevision;
  const bool is_list =
      revision >= ACL_REVISION && revision <= ACL_REVISION_DS && acl.size() >= sizeof(ACL);
  return is_list ? std::optional(acl) : std::nullopt;
}

std::optional<Parts> PartsOf(const char* descriptor, const SECURITY_DESCRIPTOR_RELATIVE& header) {
  if (header.Revision != SECURITY_DESCRIPTOR_REVISION) return std::nullopt;
  const auto owner = SidAt(descriptor, header.Owner);
  const auto group = SidAt(descriptor, header.Group);
  const auto dacl = AclAt(descriptor, header.Dacl, (header.Control & SE_DACL_PRESENT) != 0);
  const auto sacl = AclAt(descriptor, header.Sacl, (header.Control & SE_SACL_PRESENT) != 0);
  if (!owner || !group || !dacl || !sacl) return std::nullopt;
  return Parts{*owner, *group, *dacl, *sacl};
}

DWORD SizeOf(std::string_view part) { return static_cast<DWORD>(part.size()); }

template <typename Buffer>
Buffer* Copied(std::string_view part, Buffer* buffer) {
  if (part.empty()) return nullptr;
  if (buffer == nullptr) UnsupportedCall("MakeAbsoluteSD: no buffer");
  std::memcpy(buffer, part.data(), part.size());
  return buffer;
}

}  // namespace

BOOL WINAPI MakeAbsoluteSD(PSECURITY_DESCRIPTOR self_relative, PSECURITY_DESCRIPTOR absolute,
                           LPDWORD absolute_size, PACL dacl, LPDWORD dacl_size, PACL sacl,
                           LPDWORD sacl_size, PSID owner, LPDWORD owner_size, PSID primary_group,
                           LPDWORD primary_group_size) {
  constexpr DWORD kAbsoluteSize = sizeof(SECURITY_DESCRIPTOR);
  if (self_relative == nullptr) UnsupportedCall("MakeAbsoluteSD: no descriptor");
  for (const DWORD* size : {absolute_size, dacl_size, sacl_size, owner_size, primary_group_size}) {
    if (size == nullptr) UnsupportedCall("MakeAbsoluteSD: nowhere to put a size");
  }
  const Call call("MakeAbsoluteSD", *absolute_size, *dacl_size, *sacl_size, *owner_size,
                  *primary_group_size);
  if (call.fails()) return FALSE;
  const char* const bytes = static_cast<const char*>(self_relative);
  const auto header = simulator::HeaderAt<SECURITY_DESCRIPTOR_RELATIVE>(bytes);
  if ((header.Control & SE_SELF_RELATIVE) == 0) return call.Done(ERROR_BAD_DESCRIPTOR_FORMAT);
  const std::optional<Parts> parts = PartsOf(bytes, header);
  if (!parts) return call.Done(ERROR_INVALID_SECURITY_DESCR);

  if (*absolute_size < kAbsoluteSize || *dacl_size < SizeOf(parts->dacl) ||
      *sacl_size < SizeOf(parts->sacl) || *owner_size < SizeOf(parts->owner) ||
      *primary_group_size < SizeOf(parts->group)) {
    *absolute_size = kAbsoluteSize;
    *dacl_size = SizeOf(parts->dacl);
    *sacl_size = SizeOf(parts->sacl);
    *owner_size = SizeOf(parts->owner);
    *primary_group_size = SizeOf(parts->group);
    return call.Done(ERROR_INSUFFICIENT_BUFFER);
  }
  if (absolute == nullptr) UnsupportedCall("MakeAbsoluteSD: no buffer");
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
