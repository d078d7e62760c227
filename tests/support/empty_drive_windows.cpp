#include <windows.h>

#include "support/empty_drive.h"

namespace tests {

std::optional<std::string> RootOfEmptyDrive() {
  for (char letter = 'c'; letter <= 'z'; ++letter) {
    const std::string root = std::string(1, letter) + ":\\";
    const UINT type = ::GetDriveTypeA(root.c_str());
    if (type != DRIVE_REMOVABLE && type != DRIVE_CDROM) continue;
    if (::GetFileAttributesA(root.c_str()) == INVALID_FILE_ATTRIBUTES) return root;
  }
  return std::nullopt;
}

}  // namespace tests
