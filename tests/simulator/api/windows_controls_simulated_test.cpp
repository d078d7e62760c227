#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

class ControlTest : public DialogTest {
 protected:
  simulator::ShownControl Edit() { return Shown().Control(kEditId); }
  simulator::ShownControl Bar() { return Shown().Control(kBarId); }
  std::pair<size_t, size_t> Selection() { return {Edit().selection_start, Edit().selection_end}; }

  void Append(const std::wstring& text) {
    const int length = ::GetWindowTextLengthW(edit_);
    ::SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(length), length);
    ::SendMessageW(edit_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
  }
  void Select(int start, int end) {
    ::SendMessageW(edit_, EM_SETSEL, static_cast<WPARAM>(start), end);
  }

  const HWND dialog_ = Make();
  const HWND edit_ = Item(dialog_, kEditId);
  const HWND bar_ = Item(dialog_, kBarId);
};

using EditControl = ControlTest;
using ProgressBar = ControlTest;
using Selected = std::pair<size_t, size_t>;

TEST_F(EditControl, TakesTextAtItsEnd) {
  Append(L"one\r\n");
  Append(L"\u8fdb\u5ea6");
  EXPECT_EQ(Edit().text, "one\r\n\xE8\xBF\x9B\xE5\xBA\xA6");
  EXPECT_EQ(::GetWindowTextLengthW(edit_), 7);
  EXPECT_EQ(Selection(), (Selected{7, 7}));
}

TEST_F(EditControl, ReplacesWhatIsSelected) {
  Append(L"abcdef");
  Select(1, 3);
  ::SendMessageW(edit_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"XYZ"));
  EXPECT_EQ(Edit().text, "aXYZdef");
  EXPECT_EQ(Selection(), (Selected{4, 4}));
}

TEST_F(EditControl, SelectsWithinItsText) {
  Append(L"abcdef");
  Select(2, 100);
  EXPECT_EQ(Selection(), (Selected{2, 6}));
  Select(5, 1);
  EXPECT_EQ(Selection(), (Selected{1, 5}));
  Select(0, -1);
  EXPECT_EQ(Selection(), (Selected{0, 6}));
  Select(-1, 0);
  EXPECT_EQ(Selection(), (Selected{6, 6}));
}

TEST_F(EditControl, ScrollsToItsCaret) {
  Append(L"abc");
  EXPECT_EQ(Edit().scrolled_to, std::nullopt);
  ::SendMessageW(edit_, EM_SCROLLCARET, 0, 0);
  EXPECT_EQ(Edit().scrolled_to, 3u);
}

TEST_F(EditControl, TellsThatItHasChanged) {
  told_.clear();
  Append(L"abc");
  const LPARAM edit = reinterpret_cast<LPARAM>(edit_);
  EXPECT_EQ(told_, (std::vector<Told>{{WM_COMMAND, MAKEWPARAM(kEditId, EN_UPDATE), edit},
                                      {WM_COMMAND, MAKEWPARAM(kEditId, EN_CHANGE), edit}}));
}

TEST_F(EditControl, HoldsThirtyThousandCharacters) {
  Append(std::wstring(29'999, L'a'));
  told_.clear();
  Append(L"bc");
  EXPECT_EQ(::GetWindowTextLengthW(edit_), 30'000);
  EXPECT_EQ(Edit().text.back(), 'b');
  ASSERT_EQ(told_.size(), 3u);
  EXPECT_EQ(told_[0].wparam, MAKEWPARAM(kEditId, EN_MAXTEXT));
}

TEST_F(EditControl, AbortsForWhatIsNotHonoured) {
  EXPECT_DEATH(::SendMessageW(edit_, 0x00B0, 0, 0), "message 176 to an edit control");
  EXPECT_DEATH(::SendMessageW(edit_, EM_REPLACESEL, FALSE, 0), "without a text");
}

TEST_F(ProgressBar, StandsAtZeroOfAHundred) {
  EXPECT_EQ(Bar().minimum, 0);
  EXPECT_EQ(Bar().maximum, 100);
  EXPECT_EQ(Bar().position, 0);
  EXPECT_EQ(Bar().state, PBST_NORMAL);
}

TEST_F(ProgressBar, TakesARangeAndGivesTheOneBefore) {
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETRANGE, 0, MAKELPARAM(10, 300)), 0x640000);
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETRANGE, 0, 0x640000), MAKELPARAM(10, 300));
  EXPECT_EQ(Bar().minimum, 0);
  EXPECT_EQ(Bar().maximum, 100);
}

TEST_F(ProgressBar, TakesAPositionAndGivesTheOneBefore) {
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETPOS, 37, 0), 0);
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETPOS, 38, 0), 37);
  EXPECT_EQ(Bar().position, 38);
}

TEST_F(ProgressBar, KeepsItsPositionWithinItsRange) {
  ::SendMessageW(bar_, PBM_SETPOS, 101, 0);
  EXPECT_EQ(Bar().position, 100);
  ::SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(-1), 0);
  EXPECT_EQ(Bar().position, 0);
  ::SendMessageW(bar_, PBM_SETRANGE, 0, MAKELPARAM(20, 50));
  EXPECT_EQ(Bar().position, 20);
}

TEST_F(ProgressBar, TakesAStateAndGivesTheOneBefore) {
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETSTATE, PBST_ERROR, 0), PBST_NORMAL);
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETSTATE, PBST_NORMAL, 0), PBST_ERROR);
}

TEST_F(ProgressBar, HasNoStatesBeforeWindowsVista) {
  server_.system().major_version = 5;
  EXPECT_EQ(::SendMessageW(bar_, PBM_SETSTATE, PBST_ERROR, 0), 0);
  EXPECT_EQ(Bar().state, PBST_NORMAL);
}

TEST_F(ProgressBar, TakesPostedMessagesToo) {
  ::PostMessageW(bar_, PBM_SETPOS, 5, 0);
  simulator::DispatchBesideBox(server_.desktop());
  EXPECT_EQ(Bar().position, 5);
}

TEST_F(ProgressBar, AbortsForWhatIsNotHonoured) {
  EXPECT_DEATH(::SendMessageW(bar_, WM_USER + 3, 0, 0), "message 1027 to a progress bar");
  EXPECT_DEATH(::SendMessageW(bar_, PBM_SETSTATE, 4, 0), "of state 4");
  EXPECT_DEATH(::SendMessageW(bar_, PBM_SETRANGE, 0, MAKELPARAM(5, 5)), "empty range");
  EXPECT_DEATH(::SendMessageW(Item(dialog_, kNoteId), WM_USER, 0, 0), "to a STATIC");
}

}  // namespace
}  // namespace tests
