#include "restore/backup_info.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>

#include "common/file_stream.h"
#include "common/paths.h"
#include "common/product.h"
#include "common/strings.h"

namespace restore {

bool ReadBackupInfoLine(logger::Logger& logger, char drive_letter, int line_number,
                        std::string& line) {
  const std::string root = std::string(1, drive_letter) + ":\\";
  const std::string path = common::JoinPath(root + common::kPrepareFolder, "backup_info");
  // Oddity: missing backup_info, see docs/oddities.md.
  if (::PathFileExistsA(path.c_str()) != TRUE) {
    logger.Warn("ReadBackupInfoLine Backup Info File doesn't Exist.");
    return true;
  }

  common::FileStream file;
  file.open(path, std::ios_base::in);
  if (file.bad() || !file.is_open()) {
    logger.Error("ReadBackupInfoLine Backup Info Open Failed.");
    return false;
  }

  // After a line that is too long the stream is in its failed state: each later read leaves the
  // buffer empty and is counted.
  // Oddity: lines of backup_info, see docs/oddities.md.
  std::array<char, 512> buffer{};
  int remaining = line_number;
  while (remaining >= 0 && !file.eof()) {
    buffer.fill('\0');
    file.getline(buffer.data(), buffer.size());
    --remaining;
  }
  line = buffer.data();
  file.close();

  if (remaining >= 0) {
    logger.Error("ReadBackupInfoLine Backup Info Wrong Line Number.");
    return false;
  }
  return true;
}

bool ReadBackupInfo(logger::Logger& logger, char drive_letter, char& source_letter) {
  std::string line;
  if (!ReadBackupInfoLine(logger, drive_letter, 0, line)) return false;
  line = common::ToLowerAscii(line);
  // Oddity: lines of backup_info, see docs/oddities.md.
  // Oddity: drives A and B, see docs/oddities.md.
  const char first = line.empty() ? '\0' : line.front();
  if (first < 'c' || first > 'z') {
    logger.Error("ReadBackupInfo Wrong Content: %s", line.c_str());
    return false;
  }
  source_letter = first;
  return true;
}

}  // namespace restore
