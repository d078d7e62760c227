#include <windows.h>

#include <cstdint>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "support/simulated_dialog.h"
#include "support/test_names.h"

namespace tests {
namespace {

constexpr UINT kMessage = WM_USER + 1;

class WindowsMessages : public DialogTest {
 protected:
  // The next message, which must be there already.
  MSG Next() {
    MSG message{};
    EXPECT_NE(::GetMessageW(&message, nullptr, 0, 0), -1);
    return message;
  }
};

TEST_F(WindowsMessages, ComeInTheOrderOfPosting) {
  const HWND dialog = Make();
  EXPECT_TRUE(::PostMessageA(dialog, kMessage, 1, -2));
  EXPECT_TRUE(::PostMessageW(Item(dialog, kBarId), kMessage, 3, 4));
  const MSG first = Next();
  EXPECT_EQ(first.hwnd, dialog);
  EXPECT_EQ(first.message, kMessage);
  EXPECT_EQ(first.wParam, 1u);
  EXPECT_EQ(first.lParam, -2);
  const MSG second = Next();
  EXPECT_EQ(second.hwnd, Item(dialog, kBarId));
  EXPECT_EQ(second.wParam, 3u);
}

TEST_F(WindowsMessages, CarryTheTimeOfTheirPosting) {
  const HWND dialog = Make();
  ::PostMessageW(dialog, kMessage, 0, 0);
  const DWORD posted = ::GetTickCount();
  server_.clock().Advance(5000);
  EXPECT_EQ(Next().time, posted);
}

TEST_F(WindowsMessages, EndWithQuitBehindWhatIsPostedLater) {
  const HWND dialog = Make();
  ::PostQuitMessage(7);
  ::PostMessageW(dialog, kMessage, 0, 0);
  EXPECT_EQ(Next().message, kMessage);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), FALSE);
  EXPECT_EQ(message.message, UINT{WM_QUIT});
  EXPECT_EQ(message.hwnd, nullptr);
  EXPECT_EQ(message.wParam, 7u);
}

TEST_F(WindowsMessages, QuitBeforeTheyPaintOrTell) {
  const HWND dialog = Make();
  ::ShowWindow(dialog, SW_SHOWNORMAL);
  ::SetTimer(dialog, 1, 1000, nullptr);
  server_.clock().Advance(1000);
  ::PostQuitMessage(0);
  EXPECT_EQ(Next().message, UINT{WM_QUIT});
  EXPECT_EQ(Next().message, UINT{WM_PAINT});
}

TEST_F(WindowsMessages, QuitOnceWithTheLastCode) {
  const HWND dialog = Make();
  ::PostQuitMessage(1);
  ::PostQuitMessage(2);
  EXPECT_EQ(Next().wParam, 2u);
  ::PostMessageW(dialog, kMessage, 0, 0);
  EXPECT_EQ(Next().message, kMessage);
}

TEST_F(WindowsMessages, AreWaitedFor) {
  const HWND dialog = Make();
  std::thread poster([this, dialog] {
    dialogs().WaitUntilIdle(dialog);
    ::PostMessageW(dialog, kMessage, 9, 0);
  });
  EXPECT_EQ(Next().wParam, 9u);
  poster.join();
}

TEST_F(WindowsMessages, OfOtherThreadsAreTheirs) {
  const HWND dialog = Make();
  ::PostMessageW(dialog, kMessage, 1, 0);
  ::PostQuitMessage(1);
  std::thread other([this] {
    ::PostQuitMessage(2);
    EXPECT_EQ(Next().wParam, 2u);
  });
  other.join();
  EXPECT_EQ(Next().message, kMessage);
}

TEST_F(WindowsMessages, AreTenThousandAtMost) {
  const HWND dialog = Make();
  for (int i = 0; i < 10'000; ++i) ASSERT_TRUE(::PostMessageW(dialog, kMessage, 0, 0));
  EXPECT_FALSE(::PostMessageW(Item(dialog, kEditId), kMessage, 0, 0));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_QUOTA});
}

TEST_F(WindowsMessages, FailWhenAFaultIsDue) {
  server_.calls().FailNext("GetMessageW", ERROR_ACCESS_DENIED);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), -1);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(WindowsMessages, AreDispatchedToTheProcedure) {
  const HWND dialog = Make();
  told_.clear();
  ::PostMessageW(dialog, kMessage, 1, 2);
  const MSG message = Next();
  EXPECT_FALSE(::TranslateMessage(&message));
  ::DispatchMessageW(&message);
  EXPECT_EQ(told_, (std::vector<Told>{{kMessage, 1, 2}}));
}

TEST_F(WindowsMessages, OfADestroyedWindowGoNowhere) {
  const HWND dialog = Make();
  ::PostMessageW(dialog, kMessage, 1, 2);
  const MSG message = Next();
  ::DestroyWindow(dialog);
  told_.clear();
  EXPECT_EQ(::DispatchMessageW(&message), 0);
  EXPECT_FALSE(::IsDialogMessageW(dialog, const_cast<LPMSG>(&message)));
  EXPECT_TRUE(told_.empty());
}

TEST_F(WindowsMessages, ThatQuitAreDispatchedToNobody) {
  Make();
  told_.clear();
  ::PostQuitMessage(0);
  const MSG message = Next();
  EXPECT_EQ(::DispatchMessageW(&message), 0);
  EXPECT_TRUE(told_.empty());
}

TEST_F(WindowsMessages, OfTheDialogAreDispatchedByIsDialogMessage) {
  const HWND dialog = Make();
  told_.clear();
  ::PostMessageW(dialog, kMessage, 1, 2);
  MSG message = Next();
  EXPECT_TRUE(::IsDialogMessageW(dialog, &message));
  EXPECT_EQ(told_, (std::vector<Told>{{kMessage, 1, 2}}));
}

TEST_F(WindowsMessages, OfAnotherWindowAreNoDialogMessages) {
  const HWND dialog = Make();
  const HWND other = Make();
  told_.clear();
  ::PostMessageW(other, kMessage, 1, 2);
  MSG message = Next();
  EXPECT_FALSE(::IsDialogMessageW(dialog, &message));
  EXPECT_TRUE(told_.empty());
}

struct Key {
  const char* name;
  WPARAM key;
  WPARAM command;
  int button;  // 0 when the command carries none
};

std::ostream& operator<<(std::ostream& out, const Key& test) { return out << test.name; }

class WindowsKeys : public WindowsMessages, public testing::WithParamInterface<Key> {};

TEST_P(WindowsKeys, AreCommandsOfButtons) {
  const HWND dialog = Make();
  told_.clear();
  dialogs().Press(dialog, GetParam().key);
  MSG message = Next();
  EXPECT_TRUE(::IsDialogMessageW(dialog, &message));
  const HWND button = GetParam().button == 0 ? nullptr : Item(dialog, GetParam().button);
  EXPECT_EQ(
      told_,
      (std::vector<Told>{{WM_COMMAND, GetParam().command, reinterpret_cast<LPARAM>(button)}}));
}

INSTANTIATE_TEST_SUITE_P(All, WindowsKeys,
                         testing::Values(Key{"Escape", VK_ESCAPE, IDCANCEL, IDCANCEL},
                                         Key{"Return", VK_RETURN, IDOK, 0}),
                         NamedAsPrinted());

TEST_F(WindowsMessages, OfTheReturnKeyAreTheDefaultButtons) {
  simulator::DialogTemplate source = SampleTemplate("caption");
  source.controls.back().style |= BS_DEFPUSHBUTTON;
  server_.desktop().SetDialog(1033, kDialogId, source);
  const HWND dialog = Make();
  told_.clear();
  dialogs().Press(dialog, VK_RETURN);
  MSG message = Next();
  EXPECT_TRUE(::IsDialogMessageW(dialog, &message));
  ASSERT_EQ(told_.size(), 1u);
  EXPECT_EQ(told_[0].wparam, WPARAM{IDCANCEL});
}

TEST_F(WindowsMessages, OfKeysAreNothingWithoutIsDialogMessage) {
  const HWND dialog = Make();
  told_.clear();
  dialogs().Press(dialog, VK_ESCAPE);
  const MSG message = Next();
  EXPECT_TRUE(::TranslateMessage(&message));
  ::DispatchMessageW(&message);
  EXPECT_TRUE(told_.empty());
}

TEST_F(WindowsMessages, OfAClickNameTheButton) {
  const HWND dialog = MakeAndShow();
  dialogs().Click(dialog, IDCANCEL);
  const MSG message = Next();
  ::DispatchMessageW(&message);
  EXPECT_EQ(told_, (std::vector<Told>{
                       {WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(Item(dialog, IDCANCEL))}}));
}

TEST_F(WindowsMessages, OfAClickNeedAButtonToSee) {
  const HWND dialog = Make();
  EXPECT_DEATH(dialogs().Click(dialog, IDCANCEL), "no button to see");
  ::ShowWindow(dialog, SW_SHOWNORMAL);
  EXPECT_DEATH(dialogs().Click(dialog, kEditId), "no button to see");
}

TEST_F(WindowsMessages, AreNotTakenWhenTheProcessHasEnded) {
  const HWND dialog = Make();
  std::thread ender([this, dialog] {
    dialogs().WaitUntilIdle(dialog);
    dialogs().EndProcess();
  });
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), -1);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_PROCESS_ABORTED});
  ender.join();
  EXPECT_FALSE(dialogs().Has(dialog));
  EXPECT_FALSE(Shown().destroyed);
}

TEST_F(WindowsMessages, OfANewProcessAreItsOwn) {
  const HWND dialog = Make();
  ::PostMessageW(dialog, kMessage, 1, 0);
  ::PostQuitMessage(3);
  dialogs().EndProcess();
  dialogs().StartProcess();
  const HWND second = Make();
  ::PostMessageW(second, kMessage, 2, 0);
  EXPECT_EQ(Next().wParam, 2u);
  ASSERT_EQ(dialogs().TakeLost().size(), 1u);
}

// What a message box does while it stands.
TEST_F(WindowsMessages, AreDispatchedBesideABoxByItsRule) {
  const HWND dialog = MakeAndShow();
  ::SetTimer(dialog, 1, 1000, nullptr);
  ::PostQuitMessage(5);
  server_.message_boxes().Answer([this](const simulator::ShownMessageBox&) {
    server_.clock().Advance(1000);
    simulator::DispatchBesideBox(server_.desktop());
    return IDOK;
  });
  ::PostMessageW(dialog, kMessage, 1, 0);
  ::MessageBoxA(dialog, "text", "caption", MB_OK);
  EXPECT_EQ(ToldMessages(), std::vector<UINT>{kMessage});
  EXPECT_EQ(Next().wParam, 5u);
}

TEST_F(WindowsMessages, AbortForWhatIsNotHonoured) {
  const HWND dialog = Make();
  MSG message{};
  EXPECT_DEATH(::GetMessageW(&message, dialog, 0, 0), "of some messages");
  EXPECT_DEATH(::GetMessageW(&message, nullptr, 0, WM_USER), "of some messages");
  EXPECT_DEATH(::GetMessageW(nullptr, nullptr, 0, 0), "without a message");
  EXPECT_DEATH(::SendMessageW(dialog, WM_PAINT, 0, 0), "message 15 to a dialog");
  EXPECT_DEATH(::DefWindowProcW(dialog, 0, 0, 0), "DefWindowProcW of a window");
}

TEST_F(WindowsMessages, AreSentOnTheWindowsOwnThreadAlone) {
  const HWND dialog = Make();
  EXPECT_DEATH(std::thread([dialog] { ::SendMessageW(dialog, kMessage, 0, 0); }).join(),
               "another thread's window");
}

TEST_F(WindowsMessages, AreSentAtOnce) {
  const HWND dialog = Make();
  told_.clear();
  ::PostMessageW(dialog, kMessage, 1, 0);
  EXPECT_EQ(::SendMessageW(dialog, kMessage, 2, 3), 0);
  EXPECT_EQ(told_, (std::vector<Told>{{kMessage, 2, 3}}));
}

TEST_F(WindowsMessages, AreNotSentToAWindowThatIsNotThere) {
  const HWND dialog = Make();
  ::DestroyWindow(dialog);
  EXPECT_EQ(::SendMessageW(dialog, kMessage, 0, 0), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(WindowsMessages, OfNoWindowHaveNoDefault) {
  EXPECT_EQ(::DefWindowProcW(nullptr, 0, 0, 0), 0);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

}  // namespace
}  // namespace tests
