// Security descriptors as values: what the binary forms hold, without their layout.
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

// As it lies in memory: the first three groups little-endian.
using Guid = std::array<BYTE, 16>;

struct Ace {
  BYTE type = ACCESS_ALLOWED_ACE_TYPE;
  BYTE flags = 0;
  ACCESS_MASK mask = 0;
  std::optional<Guid> object_type;  // these two of object ACEs only
  std::optional<Guid> inherited_object_type;
  Sid sid;
  std::string data;  // what follows the SID: a condition, a resource attribute; padded to DWORDs

  bool operator==(const Ace&) const = default;
};

struct Acl {
  BYTE revision = ACL_REVISION;
  std::vector<Ace> aces;

  bool operator==(const Acl&) const = default;
};

struct Descriptor {
  // SE_ flags but for SE_SELF_RELATIVE. With SE_DACL_PRESENT and no `dacl` the list is null, which
  // grants everything; likewise for the SACL.
  SECURITY_DESCRIPTOR_CONTROL control = 0;
  std::optional<Sid> owner;
  std::optional<Sid> group;
  std::optional<Acl> dacl;
  std::optional<Acl> sacl;

  bool operator==(const Descriptor&) const = default;
};

// Whether an entry of that type may have object types.
bool IsObjectAce(BYTE type);

// The bytes that the list takes; the layout has no room for more than kLargestAcl.
size_t AclSize(const Acl& acl);
inline constexpr size_t kLargestAcl = 0xFFFF;

// The layouts of SID, ACL and SECURITY_DESCRIPTOR_RELATIVE. Reading gives nothing for what is not
// well-formed (entries of compound and of unknown types among it), and never reads behind the bytes
// given; what lies behind the SID or the list is not looked at.
std::string SidBytes(const Sid& sid);
std::optional<Sid> ReadSid(std::string_view bytes);
std::string AclBytes(const Acl& acl);
std::optional<Acl> ReadAcl(std::string_view bytes);
std::string DescriptorBytes(const Descriptor& descriptor);
std::optional<Descriptor> ReadDescriptor(std::string_view bytes);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_DESCRIPTOR_H_
