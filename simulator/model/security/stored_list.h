// Access control lists that are set, as the file system stores them.
#ifndef SIMULATOR_MODEL_SECURITY_STORED_LIST_H_
#define SIMULATOR_MODEL_SECURITY_STORED_LIST_H_

#include <windows.h>

#include <optional>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/list_kind.h"

namespace simulator {

// Puts `list`, null when there is none, into the descriptor of a file or folder: generic rights as
// those of a file, a folder's inheritable entry with generic rights as two, one for the folder and
// one for what is below. `information` may protect the list or end that; else it stays as it was.
// What was set is marked as automatically inherited.
void StoreList(const ListKind& kind, SECURITY_INFORMATION information,
               const std::optional<Acl>& list, bool is_folder, Descriptor* descriptor);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_STORED_LIST_H_
