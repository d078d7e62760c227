// The progress dialog where the system cannot tell the middle of the screen.
#include <gtest/gtest.h>

#include <string>

#include "simulator/model/desktop/shown_dialog.h"
#include "support/program_simulated.h"

namespace ui {
namespace {

class UnknownMiddle : public tests::ProgramTest, public testing::WithParamInterface<std::string> {
 protected:
  UnknownMiddle() { HoldTheRun(); }
};

TEST_P(UnknownMiddle, LeavesTheDialogWhereItIs) {
  server_.calls().FailNext(GetParam(), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(RunWith([this](HWND dialog) {
              EXPECT_TRUE(Dialog().visible);
              Cancel(dialog);
            }),
            0);
  EXPECT_EQ(server_.calls().ArgumentsOf(GetParam()).size(), 1U);
  EXPECT_TRUE(server_.calls().ArgumentsOf("SetWindowPos").empty());
}

INSTANTIATE_TEST_SUITE_P(Calls, UnknownMiddle,
                         testing::Values("SystemParametersInfoW", "GetWindowRect"),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace ui
