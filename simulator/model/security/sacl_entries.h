// The entries of a SACL that do not audit: mandatory labels, resource attributes and ids of central
// access policies. A request names them by bits of their own, LABEL_SECURITY_INFORMATION,
// ATTRIBUTE_SECURITY_INFORMATION and SCOPE_SECURITY_INFORMATION; SACL_SECURITY_INFORMATION does not
// cover them.
// https://learn.microsoft.com/windows/win32/secauthz/security-information
#ifndef SIMULATOR_MODEL_SECURITY_SACL_ENTRIES_H_
#define SIMULATOR_MODEL_SECURITY_SACL_ENTRIES_H_

#include <memory>
#include <optional>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// Returns true if the entry has a bit of its own; otherwise returns false.
bool HasOwnBit(const Ace& ace);

// Returns the descriptor itself if its SACL has no such entries; otherwise returns a copy without
// them.
std::shared_ptr<const Descriptor> WithoutOwnBits(const std::shared_ptr<const Descriptor>& whole);

// Completes a change that names only SACL_SECURITY_INFORMATION: removes all such entries from
// `changed` and restores those of `before`, the SACL before the change. Restored entries follow the
// kind of their neighbours: explicit ones come first, inherited ones last.
void KeepOwnBits(const std::optional<Acl>& before, Descriptor* changed);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SACL_ENTRIES_H_
