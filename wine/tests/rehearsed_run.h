// The same run on a server in memory, for comparison with a run under Wine.
#ifndef WINE_TESTS_REHEARSED_RUN_H_
#define WINE_TESTS_REHEARSED_RUN_H_

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shutdown.h"

namespace simulator {
struct Scenario;
struct ShownDialog;
}  // namespace simulator

namespace tests {

struct RehearsalOptions {
  std::string program_folder = "C:\\vantoro_restore";
  std::string log_folder = {};   // if not empty, where the log is in place of "Logs" below it
  std::string temp_folder = {};  // if not empty, in place of the server's
  bool restarts = true;
  bool logs_are_blocked = false;  // a file exists at the path of the log folder
  std::string cancelled_in = {};  // a tool in which the user cancels
};

using PartitionPlace = std::pair<int, int>;  // disk, partition

struct RehearsedRun {
  std::string log;  // in the server's code page; empty if there is none
  std::map<PartitionPlace, std::optional<char>> letters;
  simulator::BootStore boot;  // the store in use
  std::map<PartitionPlace, simulator::BootStore> unused_boot;
  bool has_common_link = false;
  bool has_program_link = false;
  std::vector<simulator::ShownMessageBox> boxes;
  std::shared_ptr<const simulator::ShownDialog> dialog;  // the last state
  std::optional<simulator::ShutdownRequest> restart;
  int exit_code = -1;
};

RehearsedRun Rehearse(const simulator::Scenario& scenario, const RehearsalOptions& options = {});

}  // namespace tests

#endif  // WINE_TESTS_REHEARSED_RUN_H_
