// The restore of a volume from what the preparation tool left in its prepare folder.
#ifndef ACL_PREPARE_DIR_H_
#define ACL_PREPARE_DIR_H_

#include <cstdint>
#include <string>

#include "logger/logger.h"

namespace acl {

// Restores the junctions of a volume, then its security descriptors. `volume_root` is a path such
// as "d:\"; its first character, as it stands, names the backup files. `prepare_dir` ends with a
// backslash and takes the place of the prepare folder in the root; empty for that one. A volume
// without the folder is none of ours.
//
// 0 when the folder is missing or both lists were read to their ends, else the result of the stage
// that failed: a volume whose junctions cannot be read gets no descriptors either. Adds to
// `progress`, which the dialog is told, 0.2 of `share` for the junctions and then the whole of
// `share` for the descriptors: 1.2 of it in all.
[[nodiscard]] int32_t RestorePrepareDir(logger::Logger& logger, double& progress, double share,
                                        const std::string& volume_root,
                                        const std::string& prepare_dir);

// Reads from the volume's backup information how many entries its ACL backup file has. False, with
// `count` as it was, when that cannot be read or, which is logged, is not more than 0.
[[nodiscard]] bool ReadACLCount(logger::Logger& logger, char drive_letter, uint32_t& count);

}  // namespace acl

#endif  // ACL_PREPARE_DIR_H_
