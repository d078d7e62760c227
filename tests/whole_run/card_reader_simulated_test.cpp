// A run beside drives without a medium.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"
#include "support/program_simulated.h"

namespace restore {
namespace {

using simulator::ShownMessageBox;

class CardReaderRun : public tests::ProgramTest {
 protected:
  CardReaderRun()
      : sources_(
            simulator::Build(simulator::ReadScenario(std::filesystem::path(VANTORO_SCENARIO_DIR) /
                                                     "card_reader.json"),
                             server_)) {
    // The user who answers critical errors, where there are any.
    server_.message_boxes().Answer([](const ShownMessageBox& box) {
      return box.type == (MB_OKCANCEL | MB_ICONQUESTION) ? IDOK : IDCANCEL;
    });
  }

  bool HasAskedFor(const std::string& root) {
    const std::vector<std::string> asked = server_.calls().ArgumentsOf("_access");
    return std::find(asked.begin(), asked.end(), "\"" + root + "\", 0") != asked.end();
  }

  const std::vector<simulator::SourceVolume> sources_;
};

TEST_F(CardReaderRun, IsHeldUpByNoMessageBoxOfTheSystem) {
  EXPECT_EQ(Run(), 0);
  EXPECT_TRUE(HasAskedFor("d:\\"));
  EXPECT_TRUE(HasAskedFor("e:\\"));
  std::vector<std::string> texts;
  for (const ShownMessageBox& box : server_.message_boxes().Shown()) texts.push_back(box.text);
  EXPECT_EQ(texts, std::vector<std::string>{"Vantoro Restore Finish, Do you want to restart!"});
}

TEST_F(CardReaderRun, SetsTheErrorModeBeforeEverythingElse) {
  std::vector<UINT> modes;
  server_.calls().Watch([&](std::string_view, const std::string&) {
    if (modes.empty()) modes.push_back(server_.own_process().error_mode());
  });
  EXPECT_EQ(Run(), 0);
  server_.calls().Watch(nullptr);
  EXPECT_EQ(modes, std::vector<UINT>{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX});
}

}  // namespace
}  // namespace restore
