#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/message_box.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/server.h"

namespace common {
namespace {

TEST(MessageBoxFormat, ShowsTheFormattedText) {
  simulator::Server server;
  const HWND owner = server.desktop().CreateWindow();
  MessageBoxFormat(owner, "Caption %s", MB_OKCANCEL | MB_ICONWARNING, "%d%% of %s", 50, "C: %d%%");
  const std::vector<simulator::ShownMessageBox> boxes = server.message_boxes().Shown();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].owner, owner);
  EXPECT_EQ(boxes[0].text, "50% of C: %d%%");
  EXPECT_EQ(boxes[0].caption, "Caption %s");
  EXPECT_EQ(boxes[0].type, UINT{MB_OKCANCEL | MB_ICONWARNING});
}

TEST(MessageBoxFormat, ReturnsTheAnswer) {
  simulator::Server server;
  for (const int answer : {IDOK, IDCANCEL}) {
    server.message_boxes().Answer([answer](const simulator::ShownMessageBox&) { return answer; });
    EXPECT_EQ(MessageBoxFormat(nullptr, "", MB_OKCANCEL, "text"), answer);
  }
}

TEST(MessageBoxFormat, TakesNoOwner) {
  simulator::Server server;
  EXPECT_EQ(MessageBoxFormat(nullptr, "caption", MB_OK, "text"), IDOK);
  ASSERT_EQ(server.message_boxes().Shown().size(), 1u);
  EXPECT_EQ(server.message_boxes().Shown()[0].owner, nullptr);
}

TEST(MessageBoxFormat, CutsBehind2046Characters) {
  simulator::Server server;
  MessageBoxFormat(nullptr, "", MB_OK, "%s", std::string(2046, 'a').c_str());
  MessageBoxFormat(nullptr, "", MB_OK, "%s", std::string(3000, 'a').c_str());
  const std::vector<simulator::ShownMessageBox> boxes = server.message_boxes().Shown();
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(boxes[0].text, std::string(2046, 'a'));
  EXPECT_EQ(boxes[1].text, std::string(2046, 'a'));
}

TEST(MessageBoxFormat, IsZeroWhenThereIsNoBox) {
  simulator::Server server;
  server.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(MessageBoxFormat(nullptr, "caption", MB_OK, "text"), 0);
}

}  // namespace
}  // namespace common
