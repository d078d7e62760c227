// The ACL stage of a volume.
#ifndef ACL_ACL_RESTORE_H_
#define ACL_ACL_RESTORE_H_

#include <cstdint>
#include <string>

#include "acl/acl_util.h"
#include "logger/logger.h"

namespace acl {

// Restores the security descriptors and attributes in an ACL backup file, with the local group
// Administrators as fallback owner. Skips lines that fail. Advances `progress.base` to the end of
// its range and reports it to the dialog, even on failure. Returns kRestored, kNoInputFile or
// kInputFileUnreadable.
[[nodiscard]] int32_t RestoreACLFile(logger::Logger& logger, const std::string& volume_root,
                                     const std::string& acl_file_path, uint32_t total_entries,
                                     ProgressRange& progress);

}  // namespace acl

#endif  // ACL_ACL_RESTORE_H_
