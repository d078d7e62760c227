#include "simulator/model/server.h"

#include <atomic>
#include <cstdint>

#include "simulator/model/unsupported.h"
#include "simulator/model/windows_boot.h"

namespace simulator {
namespace {

constexpr uint64_t kGigabyte = UINT64_C(1) << 30;

std::atomic<Server*> current = nullptr;

}  // namespace

Server::Server() : processes_(*this) {
  Server* none = nullptr;
  if (!current.compare_exchange_strong(none, this)) Unsupported("a second server beside the first");

  Volume volume;
  volume.label = "Windows";
  volume.size = 127 * kGigabyte;
  volume.free = 100 * kGigabyte;
  files_.Mount('C', files_.AddVolume(volume));
  files_.MakeDirectories(system_.system_directory);
  files_.MakeDirectories(system_.temp_directory);
  files_.MakeDirectories(system_.common_startup_directory);
  files_.Write(system_.program_path, "");
  boot_ = HealthyBoot();
}

Server::~Server() {
  processes_.TerminateAll();  // threads may be waiting for what a child writes
  threads_.WaitForAll();
  processes_.WaitForAll();
  current = nullptr;
}

Server& Server::Current() {
  Server* const server = current;
  if (server == nullptr) Unsupported("a call while no server stands");
  return *server;
}

}  // namespace simulator
