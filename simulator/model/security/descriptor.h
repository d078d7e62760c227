// Security descriptors as values: the contents of the binary forms, without their layout.
#ifndef SIMULATOR_MODEL_SECURITY_DESCRIPTOR_H_
#define SIMULATOR_MODEL_SECURITY_DESCRIPTOR_H_

#include <windows.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct Sid {
  uint64_t authority = 0;       // 48 bits
  std::vector<uint32_t> parts;  // the sub-authorities, at most SID_MAX_SUB_AUTHORITIES

  auto operator<=>(const Sid&) const = default;  // NOLINT(modernize-use-nullptr): no pointer
};

// As in memory: the first three groups are little-endian.
using Guid = std::array<BYTE, 16>;

struct Ace {
  BYTE type = ACCESS_ALLOWED_ACE_TYPE;
  BYTE flags = 0;
  ACCESS_MASK mask = 0;
  std::optional<Guid> object_type;  // these two for object ACEs only
  std::optional<Guid> inherited_object_type;
  Sid sid;
  std::string data;  // data after the SID: a condition or resource attribute; padded to DWORDs

  bool operator==(const Ace&) const = default;
};

struct Acl {
  BYTE revision = ACL_REVISION;
  std::vector<Ace> aces;

  bool operator==(const Acl&) const = default;
};

struct Descriptor {
  // SE_ flags except SE_SELF_RELATIVE. If SE_DACL_PRESENT is set and `dacl` has no value, the
  // descriptor has a NULL DACL, which grants all access. SE_SACL_PRESENT and `sacl` represent a
  // NULL SACL in the same way.
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  std::optional<Sid> owner;
  std::optional<Sid> group;
  std::optional<Acl> dacl;
  std::optional<Acl> sacl;

  bool operator==(const Descriptor&) const = default;
};

// Returns true if an ACE of that type may have object types; otherwise returns false.
bool IsObjectAce(BYTE type);

// Returns the size of the list in bytes. The layout limits it to kLargestAcl.
size_t AclSize(const Acl& acl);
inline constexpr size_t kLargestAcl = 0xFFFF;

// Write and read the layouts of SID, ACL and SECURITY_DESCRIPTOR_RELATIVE. Reading returns nothing
// if the bytes are not well-formed, which includes compound ACEs and ACEs of unknown types. It
// never reads past the end of the given bytes. Bytes after the SID or the list are ignored.
std::string SidBytes(const Sid& sid);
std::optional<Sid> ReadSid(std::string_view bytes);
std::string AclBytes(const Acl& acl);
std::optional<Acl> ReadAcl(std::string_view bytes);
std::string DescriptorBytes(const Descriptor& descriptor);
std::optional<Descriptor> ReadDescriptor(std::string_view bytes);

// The properties by which the two access control lists of a descriptor differ.
struct ListKind {
  std::optional<Acl> Descriptor::*list;
  // Bits of the control word.
  SECURITY_DESCRIPTOR_CONTROL present;
  SECURITY_DESCRIPTOR_CONTROL defaulted;
  SECURITY_DESCRIPTOR_CONTROL inherit_req;
  SECURITY_DESCRIPTOR_CONTROL auto_inherited;
  SECURITY_DESCRIPTOR_CONTROL is_protected;
  // Bits that request a change.
  SECURITY_INFORMATION set;
  SECURITY_INFORMATION protect;
  SECURITY_INFORMATION unprotect;
};

inline constexpr ListKind kDaclKind = {&Descriptor::dacl,
                                       SE_DACL_PRESENT,
                                       SE_DACL_DEFAULTED,
                                       SE_DACL_AUTO_INHERIT_REQ,
                                       SE_DACL_AUTO_INHERITED,
                                       SE_DACL_PROTECTED,
                                       DACL_SECURITY_INFORMATION,
                                       PROTECTED_DACL_SECURITY_INFORMATION,
                                       UNPROTECTED_DACL_SECURITY_INFORMATION};
inline constexpr ListKind kSaclKind = {&Descriptor::sacl,
                                       SE_SACL_PRESENT,
                                       SE_SACL_DEFAULTED,
                                       SE_SACL_AUTO_INHERIT_REQ,
                                       SE_SACL_AUTO_INHERITED,
                                       SE_SACL_PROTECTED,
                                       SACL_SECURITY_INFORMATION,
                                       PROTECTED_SACL_SECURITY_INFORMATION,
                                       UNPROTECTED_SACL_SECURITY_INFORMATION};
inline constexpr std::array kListKinds = {kDaclKind, kSaclKind};

// A change to the descriptor of a file or folder: the parameters of SetNamedSecurityInfo. Only the
// parts that `information` names are used; control flags are ignored. A missing list is a NULL
// list.
struct SecurityChange {
  SECURITY_INFORMATION information = 0;
  Descriptor parts;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_DESCRIPTOR_H_
