#include "simulator/model/server.h"
#include "support/drive.h"

namespace tests {

Drive::Drive() {
  simulator::Files& files = simulator::Server::Current().files();
  is_free_ = files.MountEmpty(letter_);
}

Drive::~Drive() {
  if (is_free_) simulator::Server::Current().files().Unmount(letter_);
}

}  // namespace tests
