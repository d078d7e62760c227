#include "simulator/model/security/descriptor.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/common/unsupported.h"

namespace simulator {
namespace {

constexpr size_t kSidHeader = offsetof(SID, SubAuthority);

Sid TakeSid(ByteReader& reader) {
  std::optional<Sid> sid = ReadSid(reader.rest());
  if (!sid) {
    reader.Fail();
    return {};
  }
  reader.Take(kSidHeader + sid->parts.size() * sizeof(DWORD));
  return std::move(*sid);
}

Guid TakeGuid(ByteReader& reader) {
  Guid guid{};
  const std::string_view taken = reader.Take(guid.size());
  std::copy(taken.begin(), taken.end(), guid.begin());
  return guid;
}

bool IsKnownType(BYTE type) {
  constexpr BYTE kCompound = 4;
  return type != kCompound && type <= SYSTEM_SCOPED_POLICY_ID_ACE_TYPE;
}

std::string AceBytes(const Ace& ace) {
  std::string body;
  AppendNumber(ace.mask, body);
  if (IsObjectAce(ace.type)) {
    const auto& inherited = ace.inherited_object_type;
    AppendNumber<DWORD>((ace.object_type ? ACE_OBJECT_TYPE_PRESENT : 0) |
                            (inherited ? ACE_INHERITED_OBJECT_TYPE_PRESENT : 0),
                        body);
    if (ace.object_type) body.append(ace.object_type->begin(), ace.object_type->end());
    if (inherited) body.append(inherited->begin(), inherited->end());
  }
  body += SidBytes(ace.sid) + ace.data;

  std::string bytes = {static_cast<char>(ace.type), static_cast<char>(ace.flags)};
  AppendNumber(static_cast<WORD>(sizeof(ACE_HEADER) + body.size()), bytes);
  return bytes + body;
}

// Takes one entry off the front.
std::optional<Ace> TakeAce(ByteReader& list) {
  Ace ace;
  ace.type = list.Take<BYTE>();
  ace.flags = list.Take<BYTE>();
  const WORD size = list.Take<WORD>();
  if (!IsKnownType(ace.type) || size < sizeof(ACE_HEADER) || size % sizeof(DWORD) != 0) return {};
  ByteReader body(list.Take(size - sizeof(ACE_HEADER)));
  if (!list.ok()) return std::nullopt;
  ace.mask = body.Take<DWORD>();
  if (IsObjectAce(ace.type)) {
    const DWORD present = body.Take<DWORD>();
    if ((present & ACE_OBJECT_TYPE_PRESENT) != 0) ace.object_type = TakeGuid(body);
    if ((present & ACE_INHERITED_OBJECT_TYPE_PRESENT) != 0) {
      ace.inherited_object_type = TakeGuid(body);
    }
  }
  ace.sid = TakeSid(body);
  ace.data = body.rest();
  if (!body.ok()) return std::nullopt;
  return ace;
}

// What lies at `offset` of a descriptor; nothing when it cannot lie there.
std::optional<std::string_view> PartAt(std::string_view descriptor, DWORD offset) {
  if (offset < sizeof(SECURITY_DESCRIPTOR_RELATIVE) || offset > descriptor.size() ||
      offset % sizeof(DWORD) != 0) {
    return std::nullopt;
  }
  return descriptor.substr(offset);
}

// A part of a descriptor that may be missing; false when it is there and not well-formed.
template <typename Part>
bool ReadPart(std::string_view descriptor, DWORD offset,
              std::optional<Part> (*read)(std::string_view), std::optional<Part>* part) {
  if (offset == 0) return true;
  const std::optional<std::string_view> bytes = PartAt(descriptor, offset);
  if (bytes) *part = read(*bytes);
  return part->has_value();
}

}  // namespace

bool IsObjectAce(BYTE type) {
  constexpr BYTE kAlarmCallbackObject = 0x10;
  return (type >= ACCESS_ALLOWED_OBJECT_ACE_TYPE && type <= SYSTEM_ALARM_OBJECT_ACE_TYPE) ||
         type == ACCESS_ALLOWED_CALLBACK_OBJECT_ACE_TYPE ||
         type == ACCESS_DENIED_CALLBACK_OBJECT_ACE_TYPE ||
         type == SYSTEM_AUDIT_CALLBACK_OBJECT_ACE_TYPE || type == kAlarmCallbackObject;
}

std::string SidBytes(const Sid& sid) {
  std::string bytes = {SID_REVISION, static_cast<char>(sid.parts.size())};
  for (int shift = 40; shift >= 0; shift -= 8)
    AppendNumber(static_cast<BYTE>(sid.authority >> shift), bytes);
  for (const uint32_t part : sid.parts) AppendNumber(part, bytes);
  return bytes;
}

std::optional<Sid> ReadSid(std::string_view bytes) {
  ByteReader reader(bytes);
  const BYTE revision = reader.Take<BYTE>();
  const BYTE count = reader.Take<BYTE>();
  if (revision != SID_REVISION || count > SID_MAX_SUB_AUTHORITIES) return std::nullopt;
  Sid sid;
  for (int i = 0; i < 6; ++i) sid.authority = sid.authority << 8 | reader.Take<BYTE>();
  for (BYTE i = 0; i < count; ++i) sid.parts.push_back(reader.Take<DWORD>());
  if (!reader.ok()) return std::nullopt;
  return sid;
}

size_t AclSize(const Acl& acl) {
  size_t size = sizeof(ACL);
  for (const Ace& ace : acl.aces) size += AceBytes(ace).size();
  return size;
}

std::string AclBytes(const Acl& acl) {
  std::string entries;
  for (const Ace& ace : acl.aces) entries += AceBytes(ace);
  const size_t size = sizeof(ACL) + entries.size();
  if (size > kLargestAcl) Unsupported("an access control list of " + std::to_string(size));

  std::string bytes = {static_cast<char>(acl.revision), 0};
  AppendNumber(static_cast<WORD>(size), bytes);
  AppendNumber(static_cast<WORD>(acl.aces.size()), bytes);
  AppendNumber(WORD{0}, bytes);
  return bytes + entries;
}

std::optional<Acl> ReadAcl(std::string_view bytes) {
  ByteReader header(bytes);
  Acl acl;
  acl.revision = header.Take<BYTE>();
  header.Take<BYTE>();
  const WORD size = header.Take<WORD>();
  const WORD count = header.Take<WORD>();
  header.Take<WORD>();
  if (acl.revision < ACL_REVISION || acl.revision > ACL_REVISION_DS || size < sizeof(ACL))
    return {};
  ByteReader list(header.Take(size - sizeof(ACL)));
  if (!header.ok()) return std::nullopt;
  for (WORD i = 0; i < count; ++i) {
    std::optional<Ace> ace = TakeAce(list);
    if (!ace || (IsObjectAce(ace->type) && acl.revision < ACL_REVISION_DS)) return std::nullopt;
    acl.aces.push_back(std::move(*ace));
  }
  return acl;
}

std::string DescriptorBytes(const Descriptor& descriptor) {
  std::string parts;
  const auto append = [&parts](const std::string& part) {
    const size_t offset = sizeof(SECURITY_DESCRIPTOR_RELATIVE) + parts.size();
    parts += part;
    return part.empty() ? 0 : offset;
  };
  const size_t sacl = append(descriptor.sacl ? AclBytes(*descriptor.sacl) : "");
  const size_t dacl = append(descriptor.dacl ? AclBytes(*descriptor.dacl) : "");
  const size_t owner = append(descriptor.owner ? SidBytes(*descriptor.owner) : "");
  const size_t group = append(descriptor.group ? SidBytes(*descriptor.group) : "");

  std::string bytes = {SECURITY_DESCRIPTOR_REVISION, 0};
  AppendNumber(static_cast<WORD>(descriptor.control | SE_SELF_RELATIVE), bytes);
  for (const size_t offset : {owner, group, sacl, dacl}) {
    AppendNumber(static_cast<DWORD>(offset), bytes);
  }
  return bytes + parts;
}

std::optional<Descriptor> ReadDescriptor(std::string_view bytes) {
  ByteReader header(bytes);
  const BYTE revision = header.Take<BYTE>();
  header.Take<BYTE>();
  const WORD control = header.Take<WORD>();
  const DWORD owner = header.Take<DWORD>();
  const DWORD group = header.Take<DWORD>();
  const DWORD sacl = header.Take<DWORD>();
  const DWORD dacl = header.Take<DWORD>();
  const bool has_sacl = (control & SE_SACL_PRESENT) != 0;
  const bool has_dacl = (control & SE_DACL_PRESENT) != 0;
  if (!header.ok() || revision != SECURITY_DESCRIPTOR_REVISION ||
      (control & SE_SELF_RELATIVE) == 0) {
    return std::nullopt;
  }
  Descriptor descriptor;
  descriptor.control = control & static_cast<WORD>(~SE_SELF_RELATIVE);
  if (!ReadPart(bytes, owner, &ReadSid, &descriptor.owner) ||
      !ReadPart(bytes, group, &ReadSid, &descriptor.group) ||
      !ReadPart(bytes, has_sacl ? sacl : 0, &ReadAcl, &descriptor.sacl) ||
      !ReadPart(bytes, has_dacl ? dacl : 0, &ReadAcl, &descriptor.dacl)) {
    return std::nullopt;
  }
  return descriptor;
}

}  // namespace simulator
