// A migrated Windows server in memory. One stands at a time; while it stands, the Win32 calls of
// this process act on it.
//
//   simulator::Server server;             // a bare server: volume C with the usual folders
//   server.files().Write("C:\\a.txt", "x");
//   server.calls().FailNext("CreatePipe", ERROR_NOT_ENOUGH_MEMORY);
//   ... run the program ...
//   server.calls().Trace(), server.handles().OpenKinds(), server.console().Text()
#ifndef SIMULATOR_MODEL_SERVER_H_
#define SIMULATOR_MODEL_SERVER_H_

#include <vector>

#include "simulator/model/boot_store.h"
#include "simulator/model/calls.h"
#include "simulator/model/clock.h"
#include "simulator/model/com.h"
#include "simulator/model/console.h"
#include "simulator/model/desktop.h"
#include "simulator/model/disks.h"
#include "simulator/model/files.h"
#include "simulator/model/handles.h"
#include "simulator/model/own_process.h"
#include "simulator/model/processes.h"
#include "simulator/model/security.h"
#include "simulator/model/shutdown.h"
#include "simulator/model/system.h"
#include "simulator/model/threads.h"

namespace simulator {

class Server {
 public:
  // Becomes the current server. Aborts when one stands already.
  Server();
  // Terminates the children, waits for the threads the program started.
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // The standing server; aborts when there is none.
  static Server& Current();

  System& system() { return system_; }
  Clock& clock() { return clock_; }
  Calls& calls() { return calls_; }
  Handles& handles() { return handles_; }
  Files& files() { return files_; }
  std::vector<Disk>& disks() { return disks_; }  // set before the program runs
  Boot& boot() { return boot_; }
  Security& security() { return security_; }
  Console& console() { return console_; }
  Desktop& desktop() { return desktop_; }
  Com& com() { return com_; }
  Shutdown& shutdown() { return shutdown_; }
  OwnProcess& own_process() { return own_process_; }
  Processes& processes() { return processes_; }  // its children
  Threads& threads() { return threads_; }

 private:
  System system_;
  Clock clock_;
  Calls calls_;
  Handles handles_;
  Security security_;
  Files files_{security_};
  std::vector<Disk> disks_;
  Boot boot_;
  Console console_;
  Desktop desktop_{clock_, system_};
  Com com_;
  Shutdown shutdown_;
  OwnProcess own_process_{*this};
  // Last, so that they end first: what runs in them uses all of the above.
  Processes processes_;
  Threads threads_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SERVER_H_
