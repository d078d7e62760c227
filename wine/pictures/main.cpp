// Takes the pictures of the dialog from real runs of the program under Wine, on the screen that
// DISPLAY names.
//   take_pictures FOLDER
#include <unistd.h>

#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

#include "wine/drive/pictured_run.h"
#include "wine/drive/screen_picture.h"
#include "wine/drive/wine_failure.h"

int main(int argc, char** argv) {
  namespace fs = std::filesystem;
  if (argc != 2) {
    std::cerr << "take_pictures FOLDER\n";
    return 2;
  }
  const fs::path pictures = argv[1];
  const fs::path prefix =
      fs::path(VANTORO_SOURCE_DIR) / "build" / "wine" / ("pictures" + std::to_string(::getpid()));
  try {
    fs::create_directories(pictures);
    for (const simulator::PicturedRun& run : simulator::PicturedRuns()) {
      const auto perform = [&] {
        simulator::Perform(run, prefix,
                           [&](const std::string& state, const simulator::WatchedDialog&,
                               const simulator::WineServer&) {
                             const fs::path file = pictures / (run.PictureOf(state) + ".png");
                             simulator::TakePicture(file);
                             std::cout << file.string() << "\n" << std::flush;
                           });
      };
      simulator::RunAgainWhereWineFails(perform, std::cout);
      simulator::RemovePrefix(prefix);
    }
  } catch (const std::exception& error) {
    std::cerr << "take_pictures: " << error.what() << "\n";
    return 1;
  }
  return 0;
}
