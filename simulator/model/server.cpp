#include "simulator/model/server.h"

#include <atomic>
#include <cstdint>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/security/security.h"

namespace simulator {
namespace {

constexpr uint64_t kGigabyte = UINT64_C(1) << 30;

std::atomic<Server*> current = nullptr;

}  // namespace

struct Server::Parts {
  explicit Parts(Server& server) : own_process(server), processes(server) {}

  System system;
  Clock clock;
  Calls calls;
  Handles handles;
  Security security;
  FileSystem files{security};
  std::vector<Disk> disks;
  Boot boot = HealthyBoot();
  Console console;
  Desktop desktop{clock, system};
  MessageBoxes message_boxes{desktop.dialogs()};
  Com com;
  Shutdown shutdown;
  OwnProcess own_process;
  // Last, so that they end first: what runs in them uses all of the above.
  Processes processes;
  Threads threads;
};

Server::Server() : parts_(std::make_unique<Parts>(*this)) {
  Server* none = nullptr;
  if (!current.compare_exchange_strong(none, this)) Unsupported("a second server beside the first");

  Volume volume;
  volume.label = "Windows";
  volume.size = 127 * kGigabyte;
  volume.free = 100 * kGigabyte;
  files().Mount('C', files().AddVolume(volume));
  files().MakeDirectories(system().system_directory);
  files().MakeDirectories(system().temp_directory);
  files().MakeDirectories(system().common_startup_directory);
  files().Write(system().program_path, "");
}

Server::~Server() {
  processes().TerminateAll();  // threads may be waiting for what a child writes
  threads().WaitForAll();
  processes().WaitForAll();
  current = nullptr;
}

Server& Server::Current() {
  Server* const server = current;
  if (server == nullptr) Unsupported("a call while no server stands");
  return *server;
}

System& Server::system() { return parts_->system; }
Clock& Server::clock() { return parts_->clock; }
Calls& Server::calls() { return parts_->calls; }
Handles& Server::handles() { return parts_->handles; }
std::vector<std::string> Server::OpenHandles() const { return parts_->handles.OpenKinds(); }
Files& Server::files() { return parts_->files; }
FileSystem& Server::file_system() { return parts_->files; }
std::vector<Disk>& Server::disks() { return parts_->disks; }
Boot& Server::boot() { return parts_->boot; }
Security& Server::security() { return parts_->security; }
Console& Server::console() { return parts_->console; }
Desktop& Server::desktop() { return parts_->desktop; }
Dialogs& Server::dialogs() { return parts_->desktop.dialogs(); }
MessageBoxes& Server::message_boxes() { return parts_->message_boxes; }
Com& Server::com() { return parts_->com; }
Shutdown& Server::shutdown() { return parts_->shutdown; }
OwnProcess& Server::own_process() { return parts_->own_process; }
Processes& Server::processes() { return parts_->processes; }
Threads& Server::threads() { return parts_->threads; }

}  // namespace simulator
