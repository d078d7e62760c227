// Resource attributes: text, and the CLAIM_SECURITY_ATTRIBUTE_RELATIVE_V1 that the entry holds.
// https://learn.microsoft.com/windows/win32/api/winnt/ns-winnt-claim_security_attribute_relative_v1
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_ATTRIBUTE_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_ATTRIBUTE_H_

#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/security/sddl_cursor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

// Takes "("Project",TS,0x0,"Windows")". Nothing when that is no attribute.
std::optional<std::string> TakeAttribute(SddlCursor& text, const AccountDomains& domains);

// Nothing when the bytes are not well-formed.
std::optional<std::string> AttributeText(std::string_view bytes, const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_ATTRIBUTE_H_
