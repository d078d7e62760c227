#include <gtest/gtest.h>

#include "rehearsal/report/report_restart.h"
#include "simulator/model/desktop/shutdown.h"

namespace simulator {
namespace {

TEST(RestartReport, GivesTheTimeAndTheNotice) {
  EXPECT_EQ(RestartReport(ShutdownRequest{"In 30 s!", 30, false, true}),
            "restart: asked for in 30 seconds, \"In 30 s!\"\n");
}

TEST(RestartReport, HasALineWithoutARestart) {
  EXPECT_EQ(RestartReport(std::nullopt), "restart: not asked for\n");
}

TEST(RestartReport, TellsAShutdownFromARestart) {
  EXPECT_EQ(RestartReport(ShutdownRequest{"t", 5, false, false}),
            "shutdown: asked for in 5 seconds, \"t\"\n");
}

TEST(RestartReport, TellsOfForce) {
  EXPECT_EQ(RestartReport(ShutdownRequest{"t", 5, true, true}),
            "restart: asked for in 5 seconds, \"t\", closing every program\n");
}

}  // namespace
}  // namespace simulator
