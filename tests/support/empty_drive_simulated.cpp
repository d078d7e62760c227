#include <windows.h>

#include <utility>

#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "support/empty_drive.h"

namespace tests {

std::optional<std::string> RootOfEmptyDrive() {
  simulator::Files& files = simulator::Server::Current().files();
  simulator::Volume empty;
  empty.drive_type = DRIVE_CDROM;
  empty.has_medium = false;
  if (!files.Mount('E', files.AddVolume(std::move(empty)))) return std::nullopt;
  return "e:\\";
}

}  // namespace tests
