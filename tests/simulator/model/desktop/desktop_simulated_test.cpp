#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/server.h"

namespace {

using simulator::PostedMessage;
using simulator::Server;
using simulator::ShownMessageBox;

constexpr UINT kMessage = WM_USER + 1;

TEST(PostMessage, IsTakenInTheOrderOfPosting) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  EXPECT_TRUE(::PostMessageA(window, kMessage, 1, -2));
  EXPECT_TRUE(::PostMessageW(window, kMessage, 3, 4));
  const PostedMessage first = server.desktop().WaitAndTake(window);
  EXPECT_EQ(first.message, kMessage);
  EXPECT_EQ(first.wparam, 1u);
  EXPECT_EQ(first.lparam, -2);
  EXPECT_EQ(server.desktop().Take(window)->wparam, 3u);
  EXPECT_FALSE(server.desktop().Take(window).has_value());
}

TEST(PostMessage, WakesWhoWaitsForIt) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  std::thread poster([window] { ::PostMessageW(window, kMessage, 5, 0); });
  EXPECT_EQ(server.desktop().WaitAndTake(window).wparam, 5u);
  poster.join();
}

TEST(PostMessage, FailsForAWindowThatIsNotThere) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  server.desktop().DestroyWindow(window);
  EXPECT_FALSE(::PostMessageW(window, kMessage, 0, 0));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST(PostMessage, FailsOnceTenThousandWait) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  for (int i = 0; i < 10'000; ++i) ASSERT_TRUE(::PostMessageW(window, kMessage, 0, 0));
  EXPECT_FALSE(::PostMessageW(window, kMessage, 0, 0));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_QUOTA});
}

TEST(PostMessage, FailsWhenAFaultIsDue) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  server.calls().FailNext("PostMessageW", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(::PostMessageW(window, kMessage, 0, 0));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_FALSE(server.desktop().Take(window).has_value());
}

TEST(PostMessage, AbortsForWhatIsNotHonoured) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  const HWND everyone = reinterpret_cast<HWND>(UINT_PTR{0xFFFF});
  EXPECT_DEATH(::PostMessageA(nullptr, kMessage, 0, 0), "to a thread");
  EXPECT_DEATH(::PostMessageA(everyone, kMessage, 0, 0), "to every window");
  EXPECT_DEATH(::PostMessageA(window, WM_USER - 1, 0, 0), "a system message");
}

TEST(Desktop, AbortsForMessagesOfAWindowThatIsNotThere) {
  Server server;
  EXPECT_DEATH(server.desktop().Take(nullptr), "a window that is not there");
}

TEST(MessageBox, IsAnsweredByOkWithoutARule) {
  Server server;
  EXPECT_EQ(::MessageBoxA(nullptr, "text", "caption", MB_OKCANCEL | MB_ICONQUESTION), IDOK);
  const ShownMessageBox box = server.message_boxes().Shown().at(0);
  EXPECT_EQ(box.text, "text");
  EXPECT_EQ(box.caption, "caption");
  EXPECT_EQ(box.type, UINT{MB_OKCANCEL | MB_ICONQUESTION});
  EXPECT_EQ(box.answer, IDOK);
}

TEST(MessageBox, IsAnsweredByTheRule) {
  Server server;
  server.message_boxes().Answer(
      [](const ShownMessageBox& box) { return box.text == "sure?" ? IDCANCEL : IDOK; });
  EXPECT_EQ(::MessageBoxA(nullptr, "sure?", "", MB_OKCANCEL), IDCANCEL);
  EXPECT_EQ(::MessageBoxA(nullptr, "done", "", MB_OKCANCEL), IDOK);
}

TEST(MessageBox, HasTheCaptionErrorWithoutOne) {
  Server server;
  ::MessageBoxA(nullptr, nullptr, nullptr, MB_OK);
  EXPECT_EQ(server.message_boxes().Shown().at(0).caption, "Error");
  EXPECT_EQ(server.message_boxes().Shown().at(0).text, "");
}

TEST(MessageBox, FailsForAnOwnerThatIsNotThere) {
  Server server;
  const HWND window = server.desktop().CreateWindow();
  EXPECT_EQ(::MessageBoxA(window, "x", "x", MB_OK), IDOK);
  server.desktop().DestroyWindow(window);
  EXPECT_EQ(::MessageBoxA(window, "x", "x", MB_OK), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
  EXPECT_EQ(server.message_boxes().Shown().size(), 1u);
}

TEST(MessageBox, AbortsForATypeOrAnAnswerThatIsNotHonoured) {
  Server server;
  EXPECT_DEATH(::MessageBoxA(nullptr, "x", "x", 4), "MessageBoxA: type");
  server.message_boxes().Answer([](const ShownMessageBox&) { return IDCANCEL; });
  EXPECT_DEATH(::MessageBoxA(nullptr, "x", "x", MB_OK), "does not offer");
}

TEST(LoadString, GivesTheTextOfTheSystemLanguage) {
  Server server;
  char text[512];
  EXPECT_EQ(::LoadStringA(nullptr, 117, text, 512), 8);
  EXPECT_STREQ(text, "Progress");
  server.system().language = 2052;
  wchar_t wide[512];
  EXPECT_EQ(::LoadStringW(nullptr, 117, wide, 512), 2);
  EXPECT_STREQ(wide, L"\u8fdb\u5ea6");
}

TEST(LoadString, FallsBackToEnglish) {
  Server server;
  server.system().language = 1031;
  char text[512];
  EXPECT_GT(::LoadStringA(nullptr, 117, text, 512), 0);
  EXPECT_STREQ(text, "Progress");
}

TEST(LoadString, CutsAtTheBufferAndTerminates) {
  Server server;
  server.desktop().SetString(1033, 900, "abcdef");
  char text[4];
  EXPECT_EQ(::LoadStringA(nullptr, 900, text, 4), 3);
  EXPECT_STREQ(text, "abc");
  wchar_t wide[4];
  EXPECT_EQ(::LoadStringW(nullptr, 900, wide, 4), 3);
  EXPECT_STREQ(wide, L"abc");
}

TEST(LoadString, CutsNarrowTextBetweenCharacters) {
  Server server;
  server.desktop().SetString(1033, 900, "a\xE8\xBF\x9B");
  char text[4];
  EXPECT_EQ(::LoadStringA(nullptr, 900, text, 4), 1);
  EXPECT_STREQ(text, "a");
  char just_enough[5];
  EXPECT_EQ(::LoadStringA(nullptr, 900, just_enough, 5), 4);
}

TEST(LoadString, EmptiesTheBufferWhenThereIsNone) {
  Server server;
  char text[4] = "old";
  EXPECT_EQ(::LoadStringA(nullptr, 900, text, 4), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
  EXPECT_STREQ(text, "");
}

TEST(LoadString, AbortsWithoutABuffer) {
  Server server;
  wchar_t wide[4];
  EXPECT_DEATH(::LoadStringW(nullptr, 117, wide, 0), "without a buffer");
}

}  // namespace
