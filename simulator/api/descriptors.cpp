// Security descriptors as text.
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
using simulator::UnsupportedCall;

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
  if ((information & ~simulator::kAllParts) != 0)
    UnsupportedCall("this security information as text");
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
