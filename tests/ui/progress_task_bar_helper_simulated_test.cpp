#include <gtest/gtest.h>

#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/server.h"
#include "ui/process_state.h"
#include "ui/progress_task_bar_helper.h"

namespace ui {
namespace {

class TaskBarHelper : public testing::Test {
 protected:
  TaskBarHelper() { EXPECT_EQ(::CoInitialize(nullptr), S_OK); }
  ~TaskBarHelper() override { ::CoUninitialize(); }

  simulator::TaskbarProgress Progress() { return server_.com().TaskbarProgressOf(window_); }

  simulator::Server server_;
  ProcessState state_;
  const HWND window_ = server_.desktop().CreateWindow();
};

TEST_F(TaskBarHelper, ShowsStateAndValueOfItsWindow) {
  ProgressTaskBarHelper helper(window_, state_);
  ASSERT_TRUE(helper.Initialize());
  helper.SetState(TBPF_ERROR);
  helper.SetValue(37, 100);
  EXPECT_EQ(Progress().state, TBPF_ERROR);
  EXPECT_EQ(Progress().completed, 37U);
  EXPECT_EQ(Progress().total, 100U);
}

TEST_F(TaskBarHelper, ReleasesItsInterface) {
  {
    ProgressTaskBarHelper helper(window_, state_);
    ASSERT_TRUE(helper.Initialize());
    EXPECT_EQ(server_.com().LiveTaskbarLists(), 1);
  }
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 0);
}

TEST_F(TaskBarHelper, DoesNothingBeforeItIsInitialised) {
  ProgressTaskBarHelper helper(window_, state_);
  helper.SetState(TBPF_ERROR);
  helper.SetValue(37, 100);
  EXPECT_EQ(Progress().total, 0U);
}

TEST_F(TaskBarHelper, IsNotInitialisedWhereTheTaskBarShowsNoProgress) {
  server_.system().major_version = 6;
  server_.system().minor_version = 0;
  ProgressTaskBarHelper helper(window_, state_);
  EXPECT_FALSE(helper.Initialize());
  EXPECT_TRUE(server_.calls().ArgumentsOf("CoCreateInstance").empty());
}

TEST_F(TaskBarHelper, IsNotInitialisedWithoutTheInterface) {
  server_.calls().FailNext("CoCreateInstance", static_cast<DWORD>(E_NOINTERFACE));
  ProgressTaskBarHelper helper(window_, state_);
  EXPECT_FALSE(helper.Initialize());
  helper.SetValue(37, 100);
  EXPECT_EQ(Progress().total, 0U);
}

TEST_F(TaskBarHelper, AsksForTheSystemOnce) {
  for (int i = 0; i < 3; ++i) {
    ProgressTaskBarHelper helper(window_, state_);
    EXPECT_TRUE(helper.Initialize());
  }
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA").size(), 1U);
}

}  // namespace
}  // namespace ui
