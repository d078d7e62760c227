// Security descriptors as text, and self-relative ones turned into absolute ones.
#include <windows.h>

#include <sddl.h>

#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/api/security_parts.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"

using simulator::Acl;
using simulator::Call;
using simulator::Descriptor;
using simulator::HeaderAt;
using simulator::Sid;
using simulator::Unsupported;

namespace {

// False when a part is there and not well-formed.
bool ReadSidAt(const void* memory, std::optional<Sid>* sid) {
  if (memory == nullptr) return true;
  *sid = simulator::ReadSid(simulator::SidBytesAt(memory));
  return sid->has_value();
}

bool ReadAclAt(const void* memory, std::optional<Acl>* acl) {
  if (memory == nullptr) return true;
  *acl = simulator::ReadAcl(simulator::AclBytesAt(memory));
  return acl->has_value();
}

// Where the parts of either form lie.
SECURITY_DESCRIPTOR Absolute(const char* bytes) {
  const auto relative = HeaderAt<SECURITY_DESCRIPTOR_RELATIVE>(bytes);
  if ((relative.Control & SE_SELF_RELATIVE) == 0) return HeaderAt<SECURITY_DESCRIPTOR>(bytes);
  const auto at = [bytes](DWORD offset) {
    return offset == 0 ? nullptr : const_cast<char*>(bytes + offset);
  };
  return {relative.Revision,
          relative.Sbz1,
          relative.Control,
          at(relative.Owner),
          at(relative.Group),
          reinterpret_cast<PACL>(at(relative.Sacl)),
          reinterpret_cast<PACL>(at(relative.Dacl))};
}

DWORD ReadDescriptorAt(const char* bytes, Descriptor* descriptor) {
  const SECURITY_DESCRIPTOR parts = Absolute(bytes);
  if (parts.Revision != SECURITY_DESCRIPTOR_REVISION) return ERROR_INVALID_SECURITY_DESCR;
  descriptor->control = parts.Control & static_cast<WORD>(~SE_SELF_RELATIVE);
  const auto list = [&parts](WORD present, PACL acl) {
    return (parts.Control & present) != 0 ? acl : nullptr;
  };
  if (!ReadSidAt(parts.Owner, &descriptor->owner) || !ReadSidAt(parts.Group, &descriptor->group)) {
    return ERROR_INVALID_SID;
  }
  if (!ReadAclAt(list(SE_DACL_PRESENT, parts.Dacl), &descriptor->dacl) ||
      !ReadAclAt(list(SE_SACL_PRESENT, parts.Sacl), &descriptor->sacl)) {
    return ERROR_INVALID_ACL;
  }
  return ERROR_SUCCESS;
}

void* LocalCopy(std::string_view bytes) {
  void* const block = simulator::AllocateLocal(bytes.size());
  std::memcpy(block, bytes.data(), bytes.size());
  return block;
}

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
  const auto revision = HeaderAt<ACL>(descriptor + offset).AclRevision;
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
  if (buffer == nullptr) Unsupported("MakeAbsoluteSD: no buffer");
  std::memcpy(buffer, part.data(), part.size());
  return buffer;
}

}  // namespace

BOOL WINAPI ConvertStringSecurityDescriptorToSecurityDescriptorA(LPCSTR text, DWORD revision,
                                                                 PSECURITY_DESCRIPTOR* descriptor,
                                                                 PULONG size) {
  const Call call("ConvertStringSecurityDescriptorToSecurityDescriptorA", text, revision);
  if (call.fails()) return FALSE;
  if (text == nullptr || descriptor == nullptr) return call.Done(ERROR_INVALID_PARAMETER);
  if (revision != SDDL_REVISION_1) return call.Done(ERROR_UNKNOWN_REVISION);
  Descriptor parsed;
  const DWORD error = simulator::ParseSddl(text, call.server().security().domains(), &parsed);
  if (error != ERROR_SUCCESS) return call.Done(error);
  const std::string bytes = simulator::DescriptorBytes(parsed);
  *descriptor = LocalCopy(bytes);
  if (size != nullptr) *size = static_cast<ULONG>(bytes.size());
  return call.Succeed(TRUE);
}

BOOL WINAPI ConvertSecurityDescriptorToStringSecurityDescriptorA(PSECURITY_DESCRIPTOR descriptor,
                                                                 DWORD revision,
                                                                 SECURITY_INFORMATION information,
                                                                 LPSTR* text, PULONG length) {
  const Call call("ConvertSecurityDescriptorToStringSecurityDescriptorA", descriptor, revision,
                  information);
  if (call.fails()) return FALSE;
  if ((information & ~simulator::kAllParts) != 0) Unsupported("this security information as text");
  if (descriptor == nullptr || text == nullptr) return call.Done(ERROR_INVALID_PARAMETER);
  if (revision != SDDL_REVISION_1) return call.Done(ERROR_UNKNOWN_REVISION);
  Descriptor read;
  const DWORD error = ReadDescriptorAt(static_cast<const char*>(descriptor), &read);
  if (error != ERROR_SUCCESS) return call.Done(error);
  const std::string printed =
      simulator::SddlText(read, call.server().security().domains(), information);
  *text = static_cast<char*>(LocalCopy({printed.c_str(), printed.size() + 1}));
  if (length != nullptr) *length = static_cast<ULONG>(printed.size() + 1);
  return call.Succeed(TRUE);
}

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
