// Watching the dialogs of the simulated desktop.
#include <windows.h>

#include <commctrl.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

constexpr UINT kMessage = WM_USER + 1;

class DialogsWatch : public DialogTest {
 protected:
  DialogsWatch() {
    dialogs().Watch([this](const simulator::ShownDialog& dialog) { seen_.push_back(dialog); });
  }

  // Handles one message.
  static void Handle() {
    MSG message{};
    EXPECT_NE(::GetMessageW(&message, nullptr, 0, 0), -1);
    ::DispatchMessageW(&message);
  }

  std::vector<simulator::ShownDialog> seen_;
};

TEST_F(DialogsWatch, ShowsAllThatAMessageChangedAtOnce) {
  const HWND dialog = MakeAndShow();
  answer_ = [](HWND window, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message != kMessage) return FALSE;
    ::SetWindowTextA(window, "new");
    ::SendMessageW(Item(window, kBarId), PBM_SETPOS, 40, 0);
    return TRUE;
  };
  seen_.clear();
  ::PostMessageW(dialog, kMessage, 0, 0);
  Handle();
  EXPECT_TRUE(seen_.empty());
  ::PostQuitMessage(0);
  Handle();
  ASSERT_EQ(seen_.size(), 1u);
  EXPECT_EQ(seen_[0].caption, "new");
  EXPECT_EQ(seen_[0].Control(kBarId).position, 40);
}

TEST_F(DialogsWatch, ComesBeforeABox) {
  const HWND dialog = MakeAndShow();
  std::string caption;
  server_.message_boxes().Answer([&](const simulator::ShownMessageBox&) {
    if (!seen_.empty()) caption = seen_.back().caption;
    return IDOK;
  });
  ::SetWindowTextA(dialog, "asking");
  ::MessageBoxA(dialog, "t", "c", MB_OK);
  EXPECT_EQ(caption, "asking");
}

TEST_F(DialogsWatch, SeesTheEnd) {
  ::DestroyWindow(MakeAndShow());
  ASSERT_FALSE(seen_.empty());
  EXPECT_TRUE(seen_.back().destroyed);
}

TEST_F(DialogsWatch, MayAct) {
  const HWND dialog = MakeAndShow();
  dialogs().Watch([this, dialog](const simulator::ShownDialog& shown) {
    if (shown.caption == "click") dialogs().Click(dialog, IDCANCEL);
  });
  ::SetWindowTextA(dialog, "click");
  Handle();
  EXPECT_EQ(ToldOf(WM_COMMAND).size(), 1u);
}

TEST_F(DialogsWatch, KeepsPostersWaitingUntilTheyAreHandled) {
  const HWND dialog = MakeAndShow();
  std::atomic<bool> handled = false;
  answer_ = [&handled](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message == kMessage) handled = true;
    if (message == kMessage + 1) ::PostQuitMessage(0);
    return TRUE;
  };
  dialogs().HandlePostsAtOnce();
  bool was_handled = false;
  std::thread poster([&] {
    ::PostMessageW(dialog, kMessage, 0, 0);
    was_handled = handled;
    ::PostMessageW(dialog, kMessage + 1, 0, 0);
  });
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  // Frees who has posted the last message.
  dialogs().EndProcess();
  poster.join();
  EXPECT_TRUE(was_handled);
}

TEST_F(DialogsWatch, KeepsPostersOfALostWindowUntilTheEnd) {
  const HWND dialog = MakeAndShow();
  answer_ = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
    if (message == kMessage) ::PostQuitMessage(0);
    return TRUE;
  };
  dialogs().HandlePostsAtOnce();
  std::atomic<bool> has_ended = false;
  bool saw_the_end = false;
  std::thread poster([&] {
    ::PostMessageW(dialog, kMessage, 0, 0);
    saw_the_end = has_ended;
  });
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) ::DispatchMessageW(&message);
  ::DestroyWindow(dialog);
  has_ended = true;
  dialogs().EndProcess();
  poster.join();
  EXPECT_TRUE(saw_the_end);
}

}  // namespace
}  // namespace tests
