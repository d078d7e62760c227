#ifndef _WIN32
#include "simulator/model/server.h"
#include "simulator/model/volume.h"
#include "support/drive.h"

namespace tests {

Drive::Drive() {
  simulator::Files& files = simulator::Server::Current().files();
  is_free_ = files.Mount(letter_, files.AddVolume({}));
}

Drive::~Drive() {
  if (is_free_) simulator::Server::Current().files().Unmount(letter_);
}

}  // namespace tests
#endif
