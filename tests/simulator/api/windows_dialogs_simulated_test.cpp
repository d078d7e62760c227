#include <windows.h>

#include <string>
#include <thread>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

using WindowsDialogs = DialogTest;

TEST_F(WindowsDialogs, AreToldTheirFontAndThenToInitialise) {
  const HWND dialog = Make(77);
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(ToldMessages(), (std::vector<UINT>{WM_SETFONT, WM_INITDIALOG}));
  EXPECT_NE(told_[0].wparam, 0u);
  EXPECT_EQ(told_[1].wparam, reinterpret_cast<WPARAM>(Item(dialog, kEditId)));
  EXPECT_EQ(told_[1].lparam, 77);
}

TEST_F(WindowsDialogs, HaveTheirControlsWhenTheyInitialise) {
  HWND bar = nullptr;
  answer_ = [&bar](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message == WM_INITDIALOG) bar = ::GetDlgItem(dialog, kBarId);
    return TRUE;
  };
  const HWND dialog = Make();
  EXPECT_NE(bar, nullptr);
  EXPECT_EQ(bar, Item(dialog, kBarId));
}

TEST_F(WindowsDialogs, ShowWhatTheTemplateSays) {
  const HWND dialog = Make();
  const simulator::ShownDialog shown = Shown();
  EXPECT_EQ(shown.window, dialog);
  EXPECT_EQ(shown.id, kDialogId);
  EXPECT_EQ(shown.caption, "caption");
  EXPECT_EQ(shown.style, DWORD{DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION});
  EXPECT_EQ(shown.extended_style, DWORD{WS_EX_TOPMOST});
  EXPECT_FALSE(shown.visible);
  ASSERT_EQ(shown.controls.size(), 4u);
  EXPECT_EQ(shown.Control(kNoteId).text, "a note");
  EXPECT_EQ(shown.Control(kNoteId).window_class, "STATIC");
  EXPECT_EQ(shown.Control(IDCANCEL).text, "Cancel");
  EXPECT_EQ(shown.Control(kBarId).window, Item(dialog, kBarId));
  EXPECT_DEATH(shown.Control(1), "control 1, which is not there");
}

TEST_F(WindowsDialogs, ComeInTheLanguageOfTheSystem) {
  server_.desktop().SetDialog(2052, kDialogId, SampleTemplate("\xE8\xBF\x9B"));
  server_.system().language = 2052;
  Make();
  EXPECT_EQ(Shown().caption, "\xE8\xBF\x9B");
}

TEST_F(WindowsDialogs, ComeInEnglishForWantOfAnother) {
  server_.desktop().SetDialog(2052, kDialogId, SampleTemplate("\xE8\xBF\x9B"));
  server_.system().language = 1031;
  Make();
  EXPECT_EQ(Shown().caption, "caption");
}

TEST_F(WindowsDialogs, AreNotMadeWithoutATemplate) {
  EXPECT_EQ(::CreateDialogParamW(nullptr, MAKEINTRESOURCEW(kDialogId + 1), nullptr, &Procedure, 0),
            nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
  EXPECT_TRUE(dialogs().All().empty());
}

TEST_F(WindowsDialogs, AreNotMadeWhenAFaultIsDue) {
  server_.calls().FailNext("CreateDialogParamW", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(Make(), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  EXPECT_TRUE(told_.empty());
}

TEST_F(WindowsDialogs, MayDestroyThemselvesWhenTheyInitialise) {
  answer_ = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message == WM_INITDIALOG) ::DestroyWindow(dialog);
    return TRUE;
  };
  EXPECT_EQ(Make(), nullptr);
  EXPECT_TRUE(Shown().destroyed);
}

TEST_F(WindowsDialogs, FindTheirControls) {
  const HWND dialog = Make();
  const HWND note = ::GetDlgItem(dialog, kNoteId);
  ASSERT_NE(note, nullptr);
  EXPECT_EQ(::GetDlgCtrlID(note), int{kNoteId});
  EXPECT_EQ(::GetParent(note), dialog);
  EXPECT_EQ(::GetParent(dialog), nullptr);
}

TEST_F(WindowsDialogs, FindNoControlThatIsNotThere) {
  const HWND dialog = Make();
  EXPECT_EQ(::GetDlgItem(dialog, 1004), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_CONTROL_ID_NOT_FOUND});
  EXPECT_EQ(::GetDlgItem(Item(dialog, kEditId), kEditId), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_CONTROL_ID_NOT_FOUND});
}

TEST_F(WindowsDialogs, KeepAValueOfTheProgram) {
  const HWND dialog = Make();
  EXPECT_EQ(::GetWindowLongPtrW(dialog, DWLP_USER), 0);
  EXPECT_EQ(::SetWindowLongPtrW(dialog, DWLP_USER, -5), 0);
  EXPECT_EQ(::SetWindowLongPtrW(dialog, DWLP_USER, 6), -5);
  EXPECT_EQ(::GetWindowLongPtrW(dialog, DWLP_USER), 6);
}

TEST_F(WindowsDialogs, AreToldTheirEndWhileTheyStand) {
  const HWND dialog = Make();
  ::SetWindowLongPtrW(dialog, DWLP_USER, 5);
  told_.clear();
  std::vector<LONG_PTR> kept;
  answer_ = [&kept](HWND ending, UINT, WPARAM, LPARAM) -> INT_PTR {
    kept.push_back(::GetWindowLongPtrW(ending, DWLP_USER));
    return FALSE;
  };
  EXPECT_TRUE(::DestroyWindow(dialog));
  EXPECT_EQ(ToldMessages(), (std::vector<UINT>{WM_DESTROY, WM_NCDESTROY}));
  EXPECT_EQ(kept, (std::vector<LONG_PTR>{5, 5}));
}

TEST_F(WindowsDialogs, LoseTheirControlsBetweenTheMessagesOfTheirEnd) {
  const HWND dialog = Make();
  std::vector<bool> has_edit;
  answer_ = [&has_edit](HWND ending, UINT, WPARAM, LPARAM) -> INT_PTR {
    has_edit.push_back(::GetDlgItem(ending, kEditId) != nullptr);
    return FALSE;
  };
  ::DestroyWindow(dialog);
  EXPECT_EQ(has_edit, (std::vector<bool>{true, false}));
}

TEST_F(WindowsDialogs, AreGoneWithTheirControls) {
  const HWND dialog = Make();
  const HWND edit = Item(dialog, kEditId);
  ::ShowWindow(dialog, SW_SHOW);
  EXPECT_TRUE(::DestroyWindow(dialog));
  EXPECT_FALSE(server_.desktop().HasWindow(dialog));
  EXPECT_FALSE(server_.desktop().HasWindow(edit));
  EXPECT_TRUE(Shown().destroyed);
  EXPECT_FALSE(Shown().visible);
  EXPECT_EQ(Shown().caption, "caption");
  EXPECT_FALSE(::DestroyWindow(dialog));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(WindowsDialogs, LoseWhatIsStillPosted) {
  const HWND dialog = Make();
  const HWND other = Make();
  ::PostMessageW(dialog, WM_USER, 1, 0);
  ::PostMessageW(Item(dialog, kEditId), WM_USER, 2, 0);
  ::PostMessageW(other, WM_USER, 3, 0);
  ::DestroyWindow(dialog);
  MSG message{};
  EXPECT_TRUE(::GetMessageW(&message, nullptr, 0, 0));
  EXPECT_EQ(message.wParam, 3u);
  std::vector<WPARAM> lost;
  for (const MSG& gone : dialogs().TakeLost()) lost.push_back(gone.wParam);
  EXPECT_EQ(lost, (std::vector<WPARAM>{2, 1}));
  EXPECT_TRUE(dialogs().TakeLost().empty());
}

TEST_F(WindowsDialogs, AreDestroyedByTheirOwnThreadAlone) {
  const HWND dialog = Make();
  std::thread([dialog] {
    EXPECT_FALSE(::DestroyWindow(dialog));
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_ACCESS_DENIED});
  }).join();
  EXPECT_TRUE(server_.desktop().HasWindow(dialog));
}

TEST_F(WindowsDialogs, AreWaitedFor) {
  HWND seen = nullptr;
  std::thread waiter([this, &seen] { seen = dialogs().WaitForDialog(); });
  const HWND dialog = Make();
  waiter.join();
  EXPECT_EQ(seen, dialog);
}

TEST_F(WindowsDialogs, ThatAreGoneAreIdle) {
  const HWND dialog = Make();
  std::thread waiter([this, dialog] { dialogs().WaitUntilIdle(dialog); });
  ::DestroyWindow(dialog);
  waiter.join();
}

TEST_F(WindowsDialogs, OwnMessageBoxes) {
  const HWND dialog = Make();
  EXPECT_EQ(::MessageBoxA(dialog, "text", "caption", MB_OK), IDOK);
  EXPECT_EQ(server_.message_boxes().Shown().at(0).owner, dialog);
}

TEST_F(WindowsDialogs, ThatAreGoneAreUnknown) {
  const HWND window = Make();
  ::DestroyWindow(window);
  EXPECT_EQ(::GetDlgItem(window, kEditId), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
  EXPECT_FALSE(::DestroyWindow(window));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(WindowsDialogs, AbortForWhatIsNotHonoured) {
  const HWND dialog = Make();
  const LPCWSTR id = MAKEINTRESOURCEW(kDialogId);
  EXPECT_DEATH(::CreateDialogParamW(nullptr, L"NAME", nullptr, &Procedure, 0), "by name");
  EXPECT_DEATH(::CreateDialogParamW(nullptr, id, dialog, &Procedure, 0), "with a parent");
  EXPECT_DEATH(::CreateDialogParamW(nullptr, id, nullptr, nullptr, 0), "without a procedure");
  EXPECT_DEATH(::GetWindowLongPtrW(dialog, DWLP_MSGRESULT), "other than DWLP_USER");
  EXPECT_DEATH(::SetWindowLongPtrW(Item(dialog, kEditId), DWLP_USER, 0), "other than DWLP_USER");
  EXPECT_DEATH(::DestroyWindow(Item(dialog, kEditId)), "DestroyWindow of a control");
  answer_ = [](HWND ending, UINT, WPARAM, LPARAM) -> INT_PTR { return ::DestroyWindow(ending); };
  EXPECT_DEATH(::DestroyWindow(dialog), "within DestroyWindow");
}

}  // namespace
}  // namespace tests
