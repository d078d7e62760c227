// Access control lists as the file system stores them when they are set.
#ifndef SIMULATOR_MODEL_SECURITY_STORED_LIST_H_
#define SIMULATOR_MODEL_SECURITY_STORED_LIST_H_

#include <windows.h>

#include <optional>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/list_kind.h"

namespace simulator {

// Stores `list`, or a NULL list if it has no value, in the descriptor of a file or folder. Generic
// rights are replaced by those of a file. An inheritable ACE of a folder that has generic rights
// becomes two, one for the folder and one for the objects below it. `information` may set or clear
// the protection of the list; otherwise the protection is unchanged. The stored list is marked as
// automatically inherited.
void StoreList(const ListKind& kind, SECURITY_INFORMATION information,
               const std::optional<Acl>& list, bool is_folder, Descriptor* descriptor);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_STORED_LIST_H_
