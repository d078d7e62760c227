#include "wine/drive/pictured_run.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "rehearsal/description/scenario.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

constexpr LANGID kEnglish = 1033;
constexpr LANGID kChinese = 2052;

// What the log box shows last when the run waits for the list.
constexpr char kLastLine[] = "Restore [e:\\]...";

// A backup file as a FIFO: who reads it waits until it is released.
class HeldFile {
 public:
  explicit HeldFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(stream), {});
    fs::remove(file);
    if (::mkfifo(file.c_str(), 0644) != 0) Throw(file);
    // For both directions: it waits for no reader, and keeps the end from being read.
    writer_ = ::open(file.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (writer_ < 0) Throw(file);
  }
  ~HeldFile() { Close(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

  // Gives the file's bytes, which must fit into a pipe, and its end.
  void Release() {
    const ssize_t written = ::write(writer_, bytes_.data(), bytes_.size());
    Close();
    if (written != static_cast<ssize_t>(bytes_.size())) {
      throw std::runtime_error("the held file is too long for a pipe");
    }
  }

 private:
  [[noreturn]] static void Throw(const fs::path& file) {
    throw std::system_error(errno, std::generic_category(), file.string());
  }
  void Close() {
    if (writer_ >= 0) ::close(writer_);
    writer_ = -1;
  }

  std::string bytes_;
  int writer_ = -1;
};

// On the source, the volume of that list had the letter E.
fs::path JunctionListOfE(const WineServer& server) {
  for (const auto& volume : fs::directory_iterator(server.prefix().folder() / "volumes")) {
    fs::path list = volume.path() / "vantoro_prepare" / "juncbackup_e.dat";
    if (fs::exists(list)) return list;
  }
  throw std::runtime_error("no volume has the junction backup file of E");
}

bool Has(const PicturedRun& run, const std::string& state) {
  return std::find(run.states.begin(), run.states.end(), state) != run.states.end();
}

}  // namespace

std::string PicturedRun::PictureOf(const std::string& state) const {
  return state + (language == kChinese ? "_chinese" : "_english");
}

const std::vector<PicturedRun>& PicturedRuns() {
  static const std::vector<PicturedRun> runs = [] {
    std::vector<PicturedRun> all;
    for (const LANGID language : {kEnglish, kChinese}) {
      all.push_back({"default", language, false, {"running", "finished"}});
      all.push_back({"default", language, true, {"cancelling"}});
      all.push_back({"acl_list_missing", language, false, {"failed"}});
    }
    return all;
  }();
  return runs;
}

void Perform(const PicturedRun& run, const fs::path& folder, const OnState& on_state) {
  Scenario scenario = ReadScenario(fs::path(VANTORO_SCENARIO_DIR) / (run.scenario + ".json"));
  scenario.language = run.language;
  WineServer server(scenario, {}, folder);
  server.prefix().AddFonts();
  std::optional<HeldFile> held;
  const bool is_running_shown = Has(run, "running");
  if (is_running_shown || run.is_cancelled) held.emplace(JunctionListOfE(server));

  WatchOptions watch;
  if (run.is_cancelled) watch.cancels_at = kLastLine;
  watch.on_dialog = [&](const WatchedDialog& dialog) {
    if (!is_running_shown || !held || !dialog.log.ends_with(std::string(kLastLine) + "\r\n")) {
      return;
    }
    on_state("running", dialog, server);
    held->Release();
    held.reset();
  };
  watch.on_box = [&](const WatchedBox& box) {
    if (!box.dialog) throw std::runtime_error("a message box without the dialog: " + box.text);
    on_state(run.states.back(), *box.dialog, server);
  };
  const WatchedRun watched = RunWatched(server, watch);
  if (watched.boxes.size() != 1 || (held && is_running_shown)) {
    throw std::runtime_error("the run did not come to the states to picture");
  }
}

}  // namespace simulator
