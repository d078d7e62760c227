#include "wine/tests/wine_case.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <regex>
#include <set>

#include "simulator/model/boot/disks.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "ui/resource.h"
#include "wine/drive/wine_failure.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

std::string WithoutTime(const std::string& title) {
  return std::regex_replace(title, std::regex("Time: .*$"), "Time: #");
}

std::vector<std::string> BarStatesOf(const simulator::ShownControl& bar) {
  if (bar.state == PBST_NORMAL) return {};
  return {std::to_string(bar.state)};
}

void Replace(std::string& text, const std::string& from, const std::string& to) {
  text = std::regex_replace(text, std::regex(from, std::regex::multiline), to);
}

}  // namespace

std::string Masked(const std::string& log) {
  std::string text = log;
  Replace(text, "^\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\]", "[time]");
  Replace(text, " restore cost \\d+s", " restore cost #s");
  Replace(text, "Finished! time: [0-9hms]+", "Finished! time: #");
  Replace(text, "vantoro_restore_\\d{8}\\.log", "vantoro_restore_#.log");
  Replace(text, "Last Error: \\[(\\d+)\\] [^\\r\\n]*", "Last Error: [$1] #");
  return text;
}

simulator::Scenario Shipped(const std::string& name) {
  return simulator::ReadScenario(fs::path(VANTORO_SCENARIO_DIR) / (name + ".json"));
}

fs::path PrefixFolder(const std::string& name) {
  return fs::path(VANTORO_WINE_DIR) / (name + std::to_string(::getpid()));
}

WineCase::~WineCase() {
  if (server_ == nullptr) return;
  const fs::path folder = server_->prefix().folder();
  if (HasFailure()) {
    std::cout << "What it left: " << folder.string() << "\n";
    return;
  }
  server_.reset();
  simulator::RemovePrefix(folder);
}

void WineCase::RunBoth(const simulator::Scenario& scenario, const RehearsalOptions& options) {
  Run(scenario, options, false);
}

void WineCase::RunBothByLink(const simulator::Scenario& scenario) { Run(scenario, {}, true); }

void WineCase::Run(const simulator::Scenario& scenario, const RehearsalOptions& options,
                   bool by_link) {
  scenario_ = scenario;
  rehearsed_ = Rehearse(scenario, options);
  simulator::WineServerOptions wine;
  wine.program_folder = options.program_folder;
  wine.log_folder = options.log_folder;
  wine.temp_folder = options.temp_folder;
  if (!options.cancelled_in.empty()) {
    // As long as the rehearsal's, and for the same reason.
    wine.answers.push_back({options.cancelled_in, 1, 0, std::string(5000, 'x'), true});
  }
  simulator::WatchOptions watch;
  watch.restarts = options.restarts;
  watch.cancels_when_held = !options.cancelled_in.empty();
  watch.starts_link = by_link;
  const auto run = [&] {
    // One prefix a process: the one of the previous run no longer exists.
    server_.reset();
    server_ = std::make_unique<simulator::WineServer>(scenario, wine, PrefixFolder("case"));
    // Else that they are gone later would say nothing.
    EXPECT_EQ(fs::exists(server_->CommonStartupLink()), scenario.common_startup_link);
    EXPECT_EQ(fs::exists(server_->ProgramLink()), scenario.program_link);
    if (options.logs_are_blocked) std::ofstream(server_->ProgramFolder() / "Logs");
    PrepareServer();
    watched_ = simulator::RunWatched(*server_, watch);
  };
  simulator::RunAgainWhereWineFails(run, std::cout);
}

void WineCase::ExpectSameLogs() { EXPECT_EQ(Masked(server_->Log()), Masked(rehearsed_.log)); }

void WineCase::ExpectSameServers() {
  const simulator::MachineState state = server_->State();
  std::map<PartitionPlace, simulator::BootStore> unused_boot;
  for (const simulator::Disk& disk : state.disks) {
    for (const simulator::Partition& partition : disk.partitions) {
      if (!partition.volume) continue;
      // What the tools know and what Wine's drives are.
      const std::optional<char> letter = server_->LetterOf(disk.number, partition.number);
      EXPECT_EQ(state.LetterOf(*partition.volume), letter);
      EXPECT_EQ(letter, rehearsed_.letters.at({disk.number, partition.number}))
          << "disk " << disk.number << " partition " << partition.number;
      const auto store = state.boot.unused.find(partition.volume.get());
      if (store == state.boot.unused.end()) continue;
      unused_boot[{disk.number, partition.number}] = store->second;
    }
  }
  std::set<char> letters;  // a spanned volume has one, but several partitions
  for (const auto& [place, letter] : rehearsed_.letters) {
    if (letter) letters.insert(*letter);
  }
  EXPECT_EQ(server_->prefix().Drives().size(), letters.size() + scenario_.empty_drives.size())
      << "there are other drives";
  if (scenario_.HasBootStore()) {
    EXPECT_EQ(state.boot.store, rehearsed_.boot);
    EXPECT_EQ(unused_boot, rehearsed_.unused_boot);
  }
  EXPECT_EQ(fs::exists(server_->CommonStartupLink()), rehearsed_.has_common_link);
  EXPECT_EQ(fs::exists(server_->ProgramLink()), rehearsed_.has_program_link);
}

void WineCase::ExpectSameEnds() {
  EXPECT_EQ(watched_.major_version, scenario_.major_version);
  EXPECT_EQ(watched_.minor_version, scenario_.minor_version);
  ASSERT_FALSE(watched_.dialogs.empty());
  // Which states are seen before the box depends on how busy the machine is.
  EXPECT_EQ(watched_.exit_code, rehearsed_.exit_code);
  EXPECT_EQ(watched_.processes, std::vector<std::string>());
  ASSERT_EQ(watched_.shutdowns.size(), rehearsed_.restart.has_value() ? 1U : 0U);
  if (rehearsed_.restart) {
    const simulator::ShutdownRequest& asked = watched_.shutdowns.front();
    EXPECT_EQ(asked.message, rehearsed_.restart->message);
    EXPECT_EQ(asked.seconds, rehearsed_.restart->seconds);
    EXPECT_EQ(asked.force_apps_closed, rehearsed_.restart->force_apps_closed);
    EXPECT_EQ(asked.reboot, rehearsed_.restart->reboot);
  }
  ASSERT_EQ(watched_.boxes.size(), rehearsed_.boxes.size());
  for (size_t i = 0; i < watched_.boxes.size(); ++i) {
    EXPECT_EQ(watched_.boxes[i].caption, rehearsed_.boxes[i].caption);
    EXPECT_EQ(watched_.boxes[i].text, rehearsed_.boxes[i].text);
    constexpr UINT kButtons = 0xF;
    const bool asks = (rehearsed_.boxes[i].type & kButtons) == MB_OKCANCEL;
    EXPECT_EQ(watched_.boxes[i].buttons.size(), asks ? 2U : 1U);
  }
  ASSERT_FALSE(watched_.boxes.empty());
  ASSERT_TRUE(watched_.boxes.back().dialog.has_value());
  const simulator::WatchedDialog& dialog = *watched_.boxes.back().dialog;
  EXPECT_EQ(WithoutTime(dialog.title), WithoutTime(rehearsed_.dialog->caption));
  const simulator::ShownControl& bar = rehearsed_.dialog->Control(IDC_PROGRESS);
  EXPECT_EQ(dialog.position, bar.position);
  EXPECT_EQ(dialog.maximum, bar.maximum);
  const std::string log = rehearsed_.dialog->Control(IDC_LOG).text;
  EXPECT_NE(log, "");
  EXPECT_EQ(Masked(dialog.log), Masked(log));
  EXPECT_EQ(watched_.bar_states, BarStatesOf(bar));
  EXPECT_EQ(dialog.note, rehearsed_.dialog->Control(IDC_NOTE).text);
  EXPECT_EQ(dialog.cancel, rehearsed_.dialog->Control(IDCANCEL).text);
}

}  // namespace tests
