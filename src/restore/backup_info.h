// The backup information file that the preparation tool left on each volume:
// <drive>:\vantoro_prepare\backup_info, narrow text, one field a line.
//
//   line 0  the drive letter the volume had on the source server; its first character counts
//   line 1  not read
//   line 2  not read
//   line 3  the number of entries in the volume's ACL backup file
#ifndef RESTORE_BACKUP_INFO_H_
#define RESTORE_BACKUP_INFO_H_

#include <string>

#include "logger/logger.h"

namespace restore {

// Reads line `line_number`, 0 the first, of the file on volume `drive_letter` into `line`, without
// its line end and up to its first zero byte. A file that is not there is no failure: `line` is
// left as it is and a warning is logged. The line just after a final line end is there and empty. A
// line of more than 511 characters and all lines behind it read as empty, the long line itself as
// its first 511 characters. Failures are logged.
[[nodiscard]] bool ReadBackupInfoLine(logger::Logger& logger, char drive_letter, int line_number,
                                      std::string& line);

// Reads the letter, "c" to "z" in lower case, that the volume had on the source server. Failures,
// a missing file among them, are logged and leave `source_letter` as it is.
[[nodiscard]] bool ReadBackupInfo(logger::Logger& logger, char drive_letter, char& source_letter);

}  // namespace restore

#endif  // RESTORE_BACKUP_INFO_H_
