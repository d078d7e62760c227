// The object types of ACEs as text.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_GUID_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_GUID_H_

#include <optional>
#include <string>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_cursor.h"

namespace simulator {

// Reads "bf967aba-0de6-11d0-a285-00aa003049e2", or an empty field before the next separator.
// Returns false if the text is neither.
bool TakeGuid(SddlCursor& text, std::optional<Guid>* guid);

std::string GuidText(const std::optional<Guid>& guid);  // empty for none

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_GUID_H_
