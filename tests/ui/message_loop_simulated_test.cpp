#include <gtest/gtest.h>

#include <vector>

#include "simulator/model/server.h"
#include "support/simulated_dialog.h"
#include "ui/message_loop.h"

namespace ui {
namespace {

TEST(MessageLoop, EndsWithTheCodeOfItsQuitMessage) {
  simulator::Server server;
  for (const int code : {0, 1, 77}) {
    ::PostQuitMessage(code);
    EXPECT_EQ(MessageLoop().Run(), code);
  }
}

TEST(MessageLoop, TakesAMessageThatCannotBeTakenForNone) {
  simulator::Server server;
  server.calls().FailNext("GetMessageW", ERROR_INVALID_PARAMETER);
  ::PostQuitMessage(3);
  EXPECT_EQ(MessageLoop().Run(), 3);
}

class MessageLoopOfWindows : public tests::DialogTest {
 protected:
  // Each window is posted a message and the loop is to end behind both.
  void ExpectBothTold(MessageLoop loop) {
    ::PostMessageW(first_, WM_USER + 1, 2, 3);
    ::PostMessageW(second_, WM_USER + 4, 5, 6);
    ::PostQuitMessage(0);
    EXPECT_EQ(loop.Run(), 0);
    EXPECT_EQ(ToldOf(WM_USER + 1), (std::vector<tests::Told>{{WM_USER + 1, 2, 3}}));
    EXPECT_EQ(ToldOf(WM_USER + 4), (std::vector<tests::Told>{{WM_USER + 4, 5, 6}}));
  }

  const HWND first_ = MakeAndShow();
  const HWND second_ = MakeAndShow();
};

TEST_F(MessageLoopOfWindows, HandsMessagesOnWithoutADialog) { ExpectBothTold(MessageLoop()); }

TEST_F(MessageLoopOfWindows, HandsMessagesOnWhicheverIsItsDialog) {
  MessageLoop loop;
  loop.SetDialog(second_);
  ExpectBothTold(loop);
}

}  // namespace
}  // namespace ui
