// The properties by which the two access control lists of a descriptor differ.
#ifndef SIMULATOR_MODEL_SECURITY_LIST_KIND_H_
#define SIMULATOR_MODEL_SECURITY_LIST_KIND_H_

#include <windows.h>

#include <array>
#include <optional>

#include "simulator/model/security/descriptor.h"

namespace simulator {

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

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_LIST_KIND_H_
