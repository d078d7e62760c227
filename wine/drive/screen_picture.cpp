#include "wine/drive/screen_picture.h"

#include <chrono>
#include <string>
#include <thread>

#include "wine/drive/host_process.h"

namespace simulator {
namespace {

std::string RunTool(std::vector<std::string> arguments) {
  return Run({.arguments = std::move(arguments), .environment = {}, .folder = "."});
}

}  // namespace

void TakePicture(const std::filesystem::path& file) {
  constexpr int kMostLooks = 20;
  constexpr std::chrono::milliseconds kPause{200};
  std::string before;
  for (int look = 0; look < kMostLooks; ++look) {
    RunTool({"import", "-window", "root", file.string()});
    const std::string now = RunTool({"identify", "-format", "%#", file.string()});
    if (now == before) break;
    before = now;
    std::this_thread::sleep_for(kPause);
  }
  RunTool({"mogrify", "-trim", "+repage", "-strip", "-define", "png:exclude-chunks=date,time",
           file.string()});
}

}  // namespace simulator
