// A run of the program of Windows on a server in a Wine prefix, and what a second program saw of
// it.
#ifndef WINE_DRIVE_WINE_RUN_H_
#define WINE_DRIVE_WINE_RUN_H_

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "simulator/model/desktop/shutdown.h"
#include "wine/drive/wine_server.h"

namespace simulator {

struct WatchedDialog {
  std::string title;
  int position = 0;
  int maximum = 0;
  std::string note;
  std::string cancel;
  friend bool operator==(const WatchedDialog&, const WatchedDialog&) = default;
};

struct WatchedBox {
  std::string caption;
  std::string text;
  std::vector<std::string> buttons;
  std::optional<WatchedDialog> dialog;  // as it was behind the box
};

struct WatchedRun {
  std::vector<WatchedDialog> dialogs;  // each that was different from the one before
  std::vector<WatchedBox> boxes;
  int exit_code = -1;
  DWORD major_version = 0;  // of the Windows that Wine was
  DWORD minor_version = 0;
  std::vector<std::string> processes;  // that the prefix still had at the end, but for Wine's own
  // What Wine tells of calls that it only pretends to do: each shutdown that it was asked for, and
  // each state of a progress bar, in hexadecimal digits, other than the normal one.
  std::vector<ShutdownRequest> shutdowns;
  std::vector<std::string> bar_states;
};

struct WatchOptions {
  bool starts_link = false;  // by the link in the common start-up folder, which is made a real one
  bool restarts = true;
  bool cancels_when_held = false;
  std::function<void(const WatchedBox&)> on_box;        // while it can be seen; may be empty
  std::function<void(const WatchedDialog&)> on_dialog;  // may be empty
};

// Throws WineFailure if Wine itself failed, another std::exception if the run cannot be watched to
// its end.
WatchedRun RunWatched(WineServer& server, const WatchOptions& options);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_RUN_H_
