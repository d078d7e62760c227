// The ACL stage of a volume.
#ifndef ACL_ACL_RESTORE_H_
#define ACL_ACL_RESTORE_H_

#include <cstdint>
#include <string>

#include "acl/acl_util.h"
#include "logger/logger.h"

namespace acl {

// Restores the descriptors and attributes of an ACL backup file, with the local Administrators as
// the owner to fall back on. Lines that fail are passed over. Advances `progress.base` to the end
// of its range and tells the dialog, also on failure. Returns the engine's result: kRestored,
// kNoInputFile or kInputFileUnreadable.
[[nodiscard]] int32_t RestoreACLFile(logger::Logger& logger, const std::string& volume_root,
                                     const std::string& acl_file_path, uint32_t total_entries,
                                     ProgressRange& progress);

}  // namespace acl

#endif  // ACL_ACL_RESTORE_H_
