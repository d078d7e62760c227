// The scheduled shutdown of the system.
#ifndef SIMULATOR_MODEL_DESKTOP_SHUTDOWN_H_
#define SIMULATOR_MODEL_DESKTOP_SHUTDOWN_H_

#include <windows.h>

#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace simulator {

struct ShutdownRequest {
  std::string message;  // UTF-8
  DWORD seconds = 0;    // until it begins
  bool force_apps_closed = false;
  bool reboot = false;
};

// Thread-safe.
class Shutdown {
 public:
  // Returns the scheduled shutdown, if there is one. It remains after the process that requested it
  // has ended. It is never carried out, even if the clock passes its time.
  std::optional<ShutdownRequest> Scheduled() const {
    const std::lock_guard lock(mutex_);
    return scheduled_;
  }

  // Returns ERROR_SHUTDOWN_IN_PROGRESS if a shutdown is already scheduled.
  DWORD Schedule(ShutdownRequest request) {
    const std::lock_guard lock(mutex_);
    if (scheduled_) return ERROR_SHUTDOWN_IN_PROGRESS;
    scheduled_ = std::move(request);
    return ERROR_SUCCESS;
  }

 private:
  mutable std::mutex mutex_;
  std::optional<ShutdownRequest> scheduled_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_SHUTDOWN_H_
