// One server, restored twice: by the Windows build of the program under Wine, and in a rehearsal.
#ifndef WINE_TESTS_WINE_CASE_H_
#define WINE_TESTS_WINE_CASE_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "rehearsal/description/scenario.h"
#include "wine/drive/wine_run.h"
#include "wine/tests/rehearsed_run.h"

namespace tests {

// Returns the text of a log with the parts replaced that differ from run to run: time stamps,
// durations, the date in the log's own name, and the texts of system errors.
std::string Masked(const std::string& log);

simulator::Scenario Shipped(const std::string& name);

// Returns the path of a folder for a prefix that only this process uses.
std::filesystem::path PrefixFolder(const std::string& name);

class WineCase : public testing::Test {
 protected:
  WineCase() = default;
  // Keeps the prefix of a failed case for inspection.
  ~WineCase() override;

  // Runs both. The test fails if a run cannot be performed, except that a run in which Wine itself
  // failed is repeated in a new prefix, at most twice.
  void RunBoth(const simulator::Scenario& scenario, const RehearsalOptions& options = {});
  // Runs both, the one under Wine through the shortcut in the common Startup folder.
  void RunBothByLink(const simulator::Scenario& scenario);

  // Compare the results of both runs and fail the test where they differ.
  void ExpectSameLogs();
  void ExpectSameServers();
  void ExpectSameEnds();
  void ExpectAllTheSame() {
    ExpectSameLogs();
    ExpectSameServers();
    ExpectSameEnds();
  }

  // Called for each new server_ before the program is started on it.
  virtual void PrepareServer() {}

  simulator::Scenario scenario_;
  RehearsedRun rehearsed_;
  std::unique_ptr<simulator::WineServer> server_;
  simulator::WatchedRun watched_;

 private:
  void Run(const simulator::Scenario& scenario, const RehearsalOptions& options, bool by_link);
};

}  // namespace tests

#endif  // WINE_TESTS_WINE_CASE_H_
