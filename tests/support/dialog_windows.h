// The program's dialog on the desktop of a real Windows, with a simulated user. The run is held in
// its first tool.
#ifndef TESTS_SUPPORT_DIALOG_WINDOWS_H_
#define TESTS_SUPPORT_DIALOG_WINDOWS_H_

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

// Puts a replacement for bcdedit that does not end by itself first in the search path.
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
  std::vector<int> buttons;  // ids of the visible buttons, in a fixed order
};

// BoxOf returns the visible message box of `owner`, or null if there is none. Look returns the
// contents of a box.
HWND BoxOf(HWND owner);
MessageBoxSeen Look(HWND box);

std::wstring TextOf(HWND window);

class WindowsDialogTest : public testing::Test {
 protected:
  WindowsDialogTest();
  ~WindowsDialogTest() override;

  // Creates the dialog, with its run started and held. Its timers are stopped unless `ticking` is
  // true.
  HWND Show(bool ticking = false);

  HWND Control(int id) const;

  // Sets the function that chooses the answer to each message box. Without it, boxes are cancelled.
  void AnswerBoxes(std::function<int(const MessageBoxSeen&)> answer) {
    answer_ = std::move(answer);
  }
  const std::vector<MessageBoxSeen>& Boxes() const { return boxes_; }

  // Dispatches the thread's messages until `holds` returns true. Fails the test if this takes too
  // long.
  void PumpUntil(const std::function<bool()>& holds);
  // Dispatches the waiting messages.
  void Pump();

  void PostState(restore::RestoreState state, LPARAM result);

  // Returns the exit code of WM_QUIT after it was received, otherwise nothing.
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

#endif  // TESTS_SUPPORT_DIALOG_WINDOWS_H_
