// The program's dialog on the desktop of a real Windows, with somebody before the screen. Its run
// is held in its first tool.
#ifndef TESTS_SUPPORT_DIALOG_WINDOWS_H_
#define TESTS_SUPPORT_DIALOG_WINDOWS_H_
#ifdef _WIN32

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "restore/messages.h"
#include "ui/main_window.h"

namespace tests {

// Puts the stand-in for bcdedit that does not end by itself first in the search path.
class HeldTools {
 public:
  HeldTools();
  ~HeldTools();

 private:
  std::wstring path_;
};

struct MessageBoxSeen {
  std::wstring caption;
  std::wstring text;
  std::vector<int> buttons;  // their ids, those of the templates' order
};

// The message box that `owner` waits for, null when there is none, and what is in it.
HWND BoxOf(HWND owner);
MessageBoxSeen Look(HWND box);

std::wstring TextOf(HWND window);

class WindowsDialogTest : public testing::Test {
 protected:
  WindowsDialogTest();
  ~WindowsDialogTest() override;

  // The dialog, its run started and held. Its timers are stopped unless they are to tick.
  HWND Show(bool ticking = false);

  HWND Control(int id) const;

  // What the person does with the boxes that come; without it they are cancelled.
  void AnswerBoxes(std::function<int(const MessageBoxSeen&)> answer) {
    answer_ = std::move(answer);
  }
  const std::vector<MessageBoxSeen>& Boxes() const { return boxes_; }

  // Handles the thread's messages until it holds; fails the test if it hangs.
  void PumpUntil(const std::function<bool()>& holds);
  // Handles those that are waiting.
  void Pump();

  void PostState(restore::RestoreState state, LPARAM result);

  // WM_QUIT's code, once it came.
  const std::optional<int>& quit_code() const { return quit_code_; }
  bool had_timers() const;

 private:
  class Window;

  static void CALLBACK OnTick(HWND, UINT, UINT_PTR, DWORD);
  void AnswerBox();
  void EndRun();

  static WindowsDialogTest* current_;

  HeldTools tools_;
  ui::ApplicationModule module_;
  ui::MessageLoop loop_;
  std::unique_ptr<Window> window_;
  UINT_PTR person_ = 0;
  HWND answered_ = nullptr;
  std::function<int(const MessageBoxSeen&)> answer_;
  std::vector<MessageBoxSeen> boxes_;
  std::optional<int> quit_code_;
  int posted_ends_ = 0;
};

}  // namespace tests

#endif  // _WIN32
#endif  // TESTS_SUPPORT_DIALOG_WINDOWS_H_
