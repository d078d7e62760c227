// The backup information file that the preparation tool creates on each volume:
// <drive>:\vantoro_prepare\backup_info, ANSI text, one field per line.
//
//   line 0  the drive letter on the source server; only the first character is used
//   line 1  not read
//   line 2  not read
//   line 3  the number of entries in the volume's ACL backup file
#ifndef RESTORE_BACKUP_INFO_H_
#define RESTORE_BACKUP_INFO_H_

#include <string>

#include "logger/logger.h"

namespace restore {

// Reads the zero-based line `line_number` of the file on volume `drive_letter` into `line`, without
// its line end and up to its first zero byte. If the file does not exist, logs a warning, leaves
// `line` unchanged and returns true. The line just after a final line end is empty. A line of more
// than 511 characters is truncated to 511, and all lines after it are read as empty. Logs a failure
// and returns false if the file cannot be opened or has too few lines.
[[nodiscard]] bool ReadBackupInfoLine(logger::Logger& logger, char drive_letter, int line_number,
                                      std::string& line);

// Reads the drive letter, "c" to "z" in lower case, of the volume on the source server. Logs a
// failure, including a missing file, leaves `source_letter` unchanged and returns false.
[[nodiscard]] bool ReadBackupInfo(logger::Logger& logger, char drive_letter, char& source_letter);

}  // namespace restore

#endif  // RESTORE_BACKUP_INFO_H_
