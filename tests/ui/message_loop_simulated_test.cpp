#include <gtest/gtest.h>

#include "simulator/model/server.h"
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

}  // namespace
}  // namespace ui
