// The restore of a volume from the files in its prepare folder.
#ifndef ACL_PREPARE_DIR_H_
#define ACL_PREPARE_DIR_H_

#include <cstdint>
#include <string>

#include "logger/logger.h"

namespace acl {

// Restores the junctions of a volume, then its security descriptors. `volume_root` is a path such
// as "d:\"; its first character, without a change of case, is part of the names of the backup
// files. `prepare_dir` ends with a backslash and replaces the prepare folder in the root; if it is
// empty, that folder is used.
//
// Returns 0 if the folder does not exist or both files were read to their ends, otherwise the
// result of the stage that failed. If the junction backup file cannot be read, the descriptors are
// not restored. Adds 0.2 of `share` to `progress` for the junctions and 1.0 of `share` for the
// descriptors, and posts the progress to the dialog.
[[nodiscard]] int32_t RestorePrepareDir(logger::Logger& logger, double& progress, double share,
                                        const std::string& volume_root,
                                        const std::string& prepare_dir);

// Reads the number of entries in the volume's ACL backup file from its backup information. Returns
// false with `count` unchanged if the line cannot be read, or, after logging it, if the number is
// not greater than 0.
[[nodiscard]] bool ReadACLCount(logger::Logger& logger, char drive_letter, uint32_t& count);

}  // namespace acl

#endif  // ACL_PREPARE_DIR_H_
