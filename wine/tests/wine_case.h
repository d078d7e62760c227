// One server, restored twice: by the program of Windows under Wine and in a rehearsal.
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

// Text of a log with what differs from run to run replaced: time stamps, durations, the day in the
// log's own name.
std::string Masked(const std::string& log);

simulator::Scenario Shipped(const std::string& name);

// A folder for a prefix, of this process's own.
std::filesystem::path PrefixFolder(const std::string& name);

class WineCase : public testing::Test {
 protected:
  WineCase() = default;
  // What a case that fails has left stays, to be looked at.
  ~WineCase() override;

  // Both runs. A failure to run at all is a failure of the test, except that a run in which Wine
  // itself failed is repeated in a fresh prefix, at most twice.
  void RunBoth(const simulator::Scenario& scenario, const RehearsalOptions& options = {});
  // That under Wine, by the link in the common start-up folder.
  void RunBothByLink(const simulator::Scenario& scenario);

  // These compare what both have left, and fail where it is not the same.
  void ExpectSameLogs();
  void ExpectSameServers();
  void ExpectSameEnds();
  void ExpectAllTheSame() {
    ExpectSameLogs();
    ExpectSameServers();
    ExpectSameEnds();
  }

  // Called with each new server_ before the program is started on it.
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
