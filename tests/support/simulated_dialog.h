// A dialog with one control of each kind, whose procedure records the messages that it receives.
#ifndef TESTS_SUPPORT_SIMULATED_DIALOG_H_
#define TESTS_SUPPORT_SIMULATED_DIALOG_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_procedures.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/server.h"

namespace tests {

struct Told {
  UINT message;
  WPARAM wparam;
  LPARAM lparam;

  friend bool operator==(const Told&, const Told&) = default;
};

inline constexpr WORD kDialogId = 900;
inline constexpr WORD kEditId = 1005;
inline constexpr WORD kBarId = 1001;
inline constexpr WORD kNoteId = 1003;

inline simulator::DialogTemplate SampleTemplate(const char* caption) {
  constexpr DWORD kVisible = WS_CHILD | WS_VISIBLE;
  simulator::DialogTemplate dialog;
  dialog.style = DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION;
  dialog.extended_style = WS_EX_TOPMOST;
  dialog.rectangle = {0, 0, 315, 119};
  dialog.caption = caption;
  dialog.font = {8, "MS Shell Dlg", 400, false, 1};
  dialog.controls = {
      {kEditId,
       "EDIT",
       {16, 14, 283, 44},
       kVisible | WS_BORDER | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY,
       0,
       ""},
      {kBarId, "msctls_progress32", {16, 65, 283, 14}, kVisible | WS_BORDER, 0, ""},
      {kNoteId, "Static", {17, 103, 184, 8}, kVisible | SS_LEFT | WS_GROUP, 0, "a note"},
      {IDCANCEL, "BUTTON", {258, 98, 50, 14}, kVisible | WS_TABSTOP, 0, "Cancel"},
  };
  return dialog;
}

// The desktop has the template as resource kDialogId.
class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    current = this;
    server_.desktop().SetDialog(1033, kDialogId, SampleTemplate("caption"));
  }
  ~DialogTest() override { current = nullptr; }

  HWND Make(LPARAM parameter = 0) {
    return ::CreateDialogParamW(nullptr, MAKEINTRESOURCEW(kDialogId), nullptr, &Procedure,
                                parameter);
  }
  // Creates, shows and paints the dialog, then clears the recorded messages.
  HWND MakeAndShow() {
    const HWND dialog = Make();
    ::ShowWindow(dialog, SW_SHOWNORMAL);
    simulator::DispatchBesideBox(server_.desktop());
    told_.clear();
    return dialog;
  }
  static HWND Item(HWND dialog, int id) { return ::GetDlgItem(dialog, id); }

  simulator::Dialogs& dialogs() { return server_.dialogs(); }
  simulator::ShownDialog Shown() { return dialogs().All().at(0); }
  // Returns the recorded messages of that kind.
  std::vector<Told> ToldOf(UINT message) const {
    std::vector<Told> found;
    for (const Told& told : told_) {
      if (told.message == message) found.push_back(told);
    }
    return found;
  }
  std::vector<UINT> ToldMessages() const {
    std::vector<UINT> messages;
    for (const Told& told : told_) messages.push_back(told.message);
    return messages;
  }

  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    current->told_.push_back({message, wparam, lparam});
    return current->answer_ ? current->answer_(dialog, message, wparam, lparam) : FALSE;
  }

  simulator::Server server_;
  std::vector<Told> told_;
  std::function<INT_PTR(HWND, UINT, WPARAM, LPARAM)> answer_;  // without one, always FALSE

 private:
  static inline DialogTest* current = nullptr;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_DIALOG_H_
