// Rehearses with the program of Windows, under Wine: shows the run and reports on the server as a
// rehearsal in memory does. What the screen showed at the end lies as a picture beside the log.
// Windows open on DISPLAY.
#include <unistd.h>

#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/command.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/options.h"
#include "rehearsal/report/report.h"
#include "rehearsal/screen.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/server.h"
#include "ui/resource.h"
#include "wine/drive/screen_picture.h"
#include "wine/drive/wine_descriptors.h"
#include "wine/drive/wine_failure.h"
#include "wine/drive/wine_run.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

// Of this process's own.
fs::path PrefixFolder(const std::string& name) {
  return fs::path(VANTORO_SOURCE_DIR) / "build" / "wine" / (name + std::to_string(::getpid()));
}

ShownDialog AsShown(const WatchedDialog& watched) {
  ShownControl bar;
  bar.id = IDC_PROGRESS;
  bar.window_class = "msctls_progress32";
  bar.position = watched.position;
  bar.maximum = watched.maximum;
  ShownDialog dialog;
  dialog.caption = watched.title;
  dialog.visible = true;
  dialog.controls.push_back(bar);
  return dialog;
}

// Shows what has come to the log since it was looked at last.
class LogReader {
 public:
  LogReader(const WineServer& server, Screen& screen) : server_(server), screen_(screen) {}

  void Look() {
    const std::string log = server_.Log();
    screen_.ShowLog(std::string_view(log).substr(shown_));
    shown_ = log.size();
  }

 private:
  const WineServer& server_;
  Screen& screen_;
  size_t shown_ = 0;
};

std::vector<DiskFacts> DisksBefore(const Scenario& scenario) {
  Server server;
  Build(scenario, server);
  return GatherDisks(server);
}

std::vector<VolumeLetters> Letters(const Scenario& scenario, const WineServer& server) {
  return GatherLetters(
      scenario, DisksBefore(scenario), server.State().history,
      [&server](int disk, int partition) { return server.LetterOf(disk, partition); });
}

// Wine makes none; their targets may be missing besides.
std::vector<JunctionOutcome> Junctions(const Scenario& scenario, const WineServer& server) {
  std::vector<JunctionOutcome> junctions;
  for (const ScenarioDisk& disk : scenario.disks) {
    for (const ScenarioPartition& partition : disk.partitions) {
      if (!partition.volume || !partition.volume->source) continue;
      for (const ScenarioJunction& junction : partition.volume->source->junctions) {
        junctions.push_back(
            {JunctionState::kNone, JunctionState::kNone, server.prefix().Exists(junction.target),
             std::string(1, *partition.volume->source_letter) + ":\\" + junction.object.path,
             junction.target});
      }
    }
  }
  return junctions;
}

fs::path PictureFile(const Options& options) { return options.logs / "vantoro_restore.png"; }

WatchedRun Rehearse(const Scenario& scenario, const Options& options, WineServer& server) {
  std::cout << scenario.title << "\n\n";
  Screen screen(std::cout, Screen::Kind::kPlain, AnsiCodePageOf(scenario.language));
  LogReader log(server, screen);
  fs::create_directories(options.logs);
  const fs::path picture = PictureFile(options);
  fs::remove(picture);

  WatchOptions watch;
  watch.restarts = options.intention.wish == Wish::kRestart;
  watch.on_dialog = [&](const WatchedDialog& dialog) {
    log.Look();
    screen.ShowDialog(AsShown(dialog));
  };
  watch.on_box = [&](const WatchedBox& box) {
    log.Look();
    TakePicture(picture);
    const bool is_refused = box.buttons.size() > 1 && !watch.restarts;
    screen.ShowBox({nullptr, box.text, box.caption, MB_OK, IDOK}, is_refused ? IDCANCEL : IDOK);
  };
  WatchedRun run = RunWatched(server, watch);
  log.Look();
  return run;
}

// A run that succeeded asks about the restart.
RunEnd EndOf(const WatchedRun& run, const Options& options) {
  const bool wants_restart = options.intention.wish == Wish::kRestart;
  if (!run.boxes.empty() && run.boxes.back().buttons.size() > 1) {
    return {RunOutcome::kSucceeded, "", wants_restart};
  }
  return {RunOutcome::kFailed, run.boxes.empty() ? "see the log" : run.boxes.back().text,
          wants_restart};
}

// `boot` is the boot store before the run.
Report GatherReport(const Scenario& scenario, const Options& options, const BootStore& boot,
                    const WineServer& server, const WatchedRun& run) {
  const MachineState state = server.State();
  Report report;
  report.title = scenario.title;
  report.run = EndOf(run, options);
  report.boot = GatherBoot(scenario, boot, state.boot, state.disks,
                           [&state](const Volume& volume) { return state.LetterOf(volume); });
  report.letters = Letters(scenario, server);
  report.junctions = Junctions(scenario, server);
  report.descriptors = GatherKeptDescriptors(scenario, server, PrefixFolder("plain")).outcome;
  if (!run.shutdowns.empty()) report.restart = run.shutdowns.front();
  return report;
}

// Returns false if a file cannot be written.
bool Show(const Report& report, const Options& options, const WineServer& server) {
  std::cout
      << "\n"
      << ReportText(report)
      << "Wine makes no junctions, and keeps of a descriptor what fits into a file's mode: it "
         "is\ncompared with what plain calls leave of the source's there.\n";
  const std::vector<fs::path> files = server.LogFiles();
  for (const fs::path& file : files) {
    fs::copy_file(file, options.logs / file.filename(), fs::copy_options::overwrite_existing);
    std::cout << "log: " << (options.logs / file.filename()).string() << "\n";
  }
  if (files.empty()) std::cout << "log: none was written\n";
  const fs::path picture = PictureFile(options);
  if (fs::exists(picture)) std::cout << "picture: " << picture.string() << "\n";
  return WriteJson(report, options.json);
}

int RehearseUnderWine(const Scenario& scenario, const Options& options) {
  const fs::path folder = PrefixFolder("rehearsal");
  Report report;
  bool is_written = false;
  std::map<std::string, int> calls;
  {
    std::unique_ptr<WineServer> server;
    BootStore boot;
    WatchedRun run;
    const auto rehearse = [&] {
      server.reset();
      server = std::make_unique<WineServer>(scenario, WineServerOptions{}, folder);
      server->prefix().AddFonts();
      boot = server->State().boot.store;
      run = Rehearse(scenario, options, *server);
    };
    RunAgainWhereWineFails(rehearse, std::cout);
    report = GatherReport(scenario, options, boot, *server, run);
    is_written = Show(report, options, *server);
    calls = server->State().calls;
  }
  RemovePrefix(folder);
  ExpectReached(scenario, calls);
  if (!is_written) return kRunFailed;
  return ExitStatus(report, options.strict);
}

}  // namespace
}  // namespace simulator

int main(int argc, char** argv) {
  return simulator::RunCommand(argc, argv, simulator::RehearseUnderWine);
}
