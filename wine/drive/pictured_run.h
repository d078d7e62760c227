// The runs under Wine that the pictures of the dialog in docs/pictures are taken from.
#ifndef WINE_DRIVE_PICTURED_RUN_H_
#define WINE_DRIVE_PICTURED_RUN_H_

#include <windows.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "wine/drive/wine_run.h"
#include "wine/drive/wine_server.h"

namespace simulator {

// A run in one language, and the states of the dialog that it is pictured in, in their order.
struct PicturedRun {
  std::string scenario;  // a shipped one
  LANGID language;
  bool is_cancelled;
  std::vector<std::string> states;  // "running", "cancelling", "failed" or "finished"

  // Returns the name of a picture without its extension: "running_english".
  std::string PictureOf(const std::string& state) const;
};

const std::vector<PicturedRun>& PicturedRuns();

// Called while the dialog shows the state.
using OnState = std::function<void(const std::string& state, const WatchedDialog& dialog,
                                   const WineServer& server)>;

// Runs the program on a server in `folder`, which is cleared first. In the states "running" and
// "cancelling" the run waits for the junction backup file of volume E. Throws std::exception,
// WineFailure if Wine itself failed.
void Perform(const PicturedRun& run, const std::filesystem::path& folder, const OnState& on_state);

}  // namespace simulator

#endif  // WINE_DRIVE_PICTURED_RUN_H_
