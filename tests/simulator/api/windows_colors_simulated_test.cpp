#include <windows.h>

#include <map>
#include <optional>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

constexpr COLORREF kBlack = 0x000000;
constexpr COLORREF kBlue = 0xFF0000;
constexpr COLORREF kFace = 0xF0F0F0;
constexpr COLORREF kWhite = 0xFFFFFF;

class WindowsColors : public DialogTest {
 protected:
  // As the controls of a shown dialog paint themselves.
  std::map<WORD, simulator::ShownColors> Paint() {
    MakeAndShow();
    std::map<WORD, simulator::ShownColors> colors;
    for (const simulator::ShownControl& control : Shown().controls) {
      if (control.colors) colors[control.id] = *control.colors;
    }
    return colors;
  }
  static INT_PTR Brush(int object) { return reinterpret_cast<INT_PTR>(::GetStockObject(object)); }
};

TEST_F(WindowsColors, AreNotAskedForBeforeTheDialogIsShown) {
  Make();
  simulator::DispatchBesideBox(server_.desktop());
  EXPECT_TRUE(ToldOf(WM_CTLCOLORSTATIC).empty());
  EXPECT_EQ(Shown().Control(kNoteId).colors, std::nullopt);
}

// An edit control that can only be read asks as a static control does.
TEST_F(WindowsColors, AreAskedForByEveryControlThatHasSome) {
  const HWND dialog = Make();
  ::ShowWindow(dialog, SW_SHOWNORMAL);
  simulator::DispatchBesideBox(server_.desktop());
  std::map<HWND, UINT> asked;
  for (const UINT message : {WM_CTLCOLORSTATIC, WM_CTLCOLOREDIT, WM_CTLCOLORBTN}) {
    for (const Told& told : ToldOf(message)) asked[reinterpret_cast<HWND>(told.lparam)] = message;
  }
  EXPECT_EQ(asked, (std::map<HWND, UINT>{{Item(dialog, kEditId), WM_CTLCOLORSTATIC},
                                         {Item(dialog, kNoteId), WM_CTLCOLORSTATIC},
                                         {Item(dialog, IDCANCEL), WM_CTLCOLORBTN}}));
}

TEST_F(WindowsColors, AreAskedForByAFieldToFillIn) {
  simulator::DialogTemplate source = SampleTemplate("caption");
  source.controls[0].style &= ~DWORD{ES_READONLY};
  server_.desktop().SetDialog(1033, kDialogId, source);
  const simulator::ShownColors field = Paint().at(kEditId);
  EXPECT_EQ(field.text, kBlack);
  EXPECT_EQ(field.background, kWhite);
  EXPECT_EQ(field.brush, std::nullopt);
}

TEST_F(WindowsColors, AreTheDialogsOwnWhenTheProcedureLeavesThem) {
  answer_ = [](HWND, UINT message, WPARAM wparam, LPARAM) -> INT_PTR {
    if (message == WM_CTLCOLORSTATIC) ::SetTextColor(reinterpret_cast<HDC>(wparam), kBlue);
    return FALSE;
  };
  const simulator::ShownColors note = Paint().at(kNoteId);
  EXPECT_EQ(note.text, kBlack);
  EXPECT_EQ(note.background, kFace);
  EXPECT_EQ(note.mode, OPAQUE);
  EXPECT_EQ(note.brush, std::nullopt);
}

TEST_F(WindowsColors, AreThoseOfTheProcedure) {
  answer_ = [](HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) -> INT_PTR {
    if (message != WM_CTLCOLORSTATIC) return FALSE;
    if (reinterpret_cast<HWND>(lparam) != ::GetDlgItem(dialog, kNoteId)) return FALSE;
    const HDC context = reinterpret_cast<HDC>(wparam);
    EXPECT_EQ(::SetTextColor(context, kBlue), kBlack);
    EXPECT_EQ(::SetBkColor(context, kFace), kWhite);
    EXPECT_EQ(::SetBkMode(context, TRANSPARENT), OPAQUE);
    return Brush(NULL_BRUSH);
  };
  const auto colors = Paint();
  const simulator::ShownColors& note = colors.at(kNoteId);
  EXPECT_EQ(note.text, kBlue);
  EXPECT_EQ(note.background, kFace);
  EXPECT_EQ(note.mode, TRANSPARENT);
  EXPECT_EQ(note.brush, NULL_BRUSH);
  EXPECT_EQ(colors.at(kEditId).brush, std::nullopt);
}

TEST_F(WindowsColors, AreAskedForAgainWhenTheTextChanges) {
  const HWND dialog = MakeAndShow();
  ::SendMessageW(Item(dialog, kEditId), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"text"));
  told_.clear();
  simulator::DispatchBesideBox(server_.desktop());
  ASSERT_EQ(told_.size(), 1u);
  EXPECT_EQ(told_[0].message, UINT{WM_CTLCOLORSTATIC});
  EXPECT_EQ(told_[0].lparam, reinterpret_cast<LPARAM>(Item(dialog, kEditId)));
}

TEST_F(WindowsColors, AreSetNoLongerThanThePaintingLasts) {
  HDC context = nullptr;
  answer_ = [&context](HWND, UINT message, WPARAM wparam, LPARAM) -> INT_PTR {
    if (message == WM_CTLCOLORSTATIC) context = reinterpret_cast<HDC>(wparam);
    return FALSE;
  };
  Paint();
  EXPECT_EQ(::SetTextColor(context, kBlue), CLR_INVALID);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE});
  EXPECT_EQ(::SetBkColor(context, kBlue), CLR_INVALID);
  EXPECT_EQ(::SetBkMode(context, OPAQUE), 0);
}

TEST_F(WindowsColors, AbortForWhatIsNotHonoured) {
  EXPECT_DEATH(::SetTextColor(nullptr, 0x01000000), "palette");
  EXPECT_DEATH(::SetBkMode(nullptr, 3), "SetBkMode: mode");
  EXPECT_DEATH(::GetStockObject(1), "GetStockObject: object");
  answer_ = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
    return message == WM_CTLCOLORSTATIC ? 1 : 0;
  };
  EXPECT_DEATH(MakeAndShow(), "no stock object");
}

}  // namespace
}  // namespace tests
