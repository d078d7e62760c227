// A run of the Windows build of the program on a server in a Wine prefix, as observed by a second
// program.
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
  std::string log;  // the text of the log box
  std::string note;
  std::string cancel;
  friend bool operator==(const WatchedDialog&, const WatchedDialog&) = default;
};

struct WatchedBox {
  std::string caption;
  std::string text;
  std::vector<std::string> buttons;
  std::optional<WatchedDialog> dialog;  // the state while the box was shown
};

struct WatchedRun {
  std::vector<WatchedDialog> dialogs;  // each state that differs from the one before
  std::vector<WatchedBox> boxes;
  int exit_code = -1;
  DWORD major_version = 0;  // of the Windows version that Wine reported
  DWORD minor_version = 0;
  std::vector<std::string> processes;  // still running at the end, except Wine's own
  // Calls that Wine reports without performing them: each requested shutdown, and each progress bar
  // state other than the normal one, in hexadecimal digits.
  std::vector<ShutdownRequest> shutdowns;
  std::vector<std::string> bar_states;
};

struct WatchOptions {
  bool starts_link = false;  // through a real shortcut in the common Startup folder
  bool restarts = true;
  bool cancels_when_held = false;
  std::string cancels_at;  // the last line of the log box at which it is cancelled; empty for none
  std::function<void(const WatchedBox&)> on_box;        // while the box is visible; may be empty
  std::function<void(const WatchedDialog&)> on_dialog;  // may be empty
};

// Throws WineFailure if Wine itself failed, or another std::exception if the run cannot be observed
// to its end.
WatchedRun RunWatched(WineServer& server, const WatchOptions& options);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_RUN_H_
