#include <windows.h>

#include <ostream>
#include <string>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialog_template.h"
#include "support/simulated_dialog.h"

namespace tests {
namespace {

std::string Text(const RECT& place) {
  return std::to_string(place.left) + "," + std::to_string(place.top) + " " +
         std::to_string(place.right) + "," + std::to_string(place.bottom);
}

using WindowsPlace = DialogTest;

// 315 by 119 units are 472.5 by 193.4 pixels; the borders take 6 by 29.
TEST_F(WindowsPlace, IsTheTemplatesInPixels) {
  const HWND dialog = Make();
  RECT place{};
  EXPECT_TRUE(::GetWindowRect(dialog, &place));
  EXPECT_EQ(Text(place), "0,0 479,222");
  EXPECT_EQ(Text(Shown().rectangle), "0,0 479,222");
}

// 16,14 and 283 by 44 units are 24,22.75 and 424.5 by 71.5 pixels, behind a border of 3,26.
TEST_F(WindowsPlace, OfAControlIsBehindTheBorder) {
  Make();
  EXPECT_EQ(Text(Shown().Control(kEditId).rectangle), "27,49 452,121");
}

TEST_F(WindowsPlace, ChangesForAllOfTheDialog) {
  const HWND dialog = Make();
  EXPECT_TRUE(
      ::SetWindowPos(dialog, nullptr, 100, -5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE));
  EXPECT_EQ(Text(Shown().rectangle), "100,-5 579,217");
  EXPECT_EQ(Text(Shown().Control(kEditId).rectangle), "127,44 552,116");
}

TEST_F(WindowsPlace, IsOnAScreenWithATaskBar) {
  RECT area{};
  EXPECT_TRUE(::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
  EXPECT_EQ(Text(area), "0,0 1024,728");
}

TEST_F(WindowsPlace, StaysAsItIsWhenAFaultIsDue) {
  const HWND dialog = Make();
  server_.calls().FailNext("SetWindowPos", ERROR_ACCESS_DENIED);
  EXPECT_FALSE(::SetWindowPos(dialog, nullptr, 1, 1, 0, 0, SWP_NOSIZE | SWP_NOZORDER));
  EXPECT_EQ(Text(Shown().rectangle), "0,0 479,222");
}

TEST_F(WindowsPlace, AbortsForWhatIsNotHonoured) {
  const HWND dialog = Make();
  RECT place{};
  EXPECT_DEATH(::SetWindowPos(dialog, nullptr, 0, 0, 1, 1, SWP_NOZORDER), "SetWindowPos: flags");
  EXPECT_DEATH(::GetWindowRect(Item(dialog, kEditId), &place), "GetWindowRect of a control");
  EXPECT_DEATH(::SystemParametersInfoW(SPI_GETWORKAREA + 1, 0, &place, 0), "action");
}

using WindowsLook = DialogTest;

TEST_F(WindowsLook, IsHiddenUntilShown) {
  const HWND dialog = Make();
  EXPECT_FALSE(Shown().visible);
  EXPECT_FALSE(::ShowWindow(dialog, SW_SHOWNORMAL));
  EXPECT_TRUE(Shown().visible);
  EXPECT_TRUE(::ShowWindow(dialog, SW_HIDE));
  EXPECT_FALSE(Shown().visible);
}

TEST_F(WindowsLook, IsShownAtOnceWhenTheTemplateSaysSo) {
  simulator::DialogTemplate source = SampleTemplate("caption");
  source.style |= WS_VISIBLE;
  server_.desktop().SetDialog(1033, kDialogId, source);
  Make();
  EXPECT_TRUE(Shown().visible);
}

TEST_F(WindowsLook, HasTheCaptionThatWasSet) {
  const HWND dialog = Make();
  EXPECT_EQ(::GetWindowTextLengthW(dialog), 7);
  EXPECT_TRUE(::SetWindowTextA(dialog, "\xE8\xBF\x9B\xE5\xBA\xA6 37.50%"));
  EXPECT_EQ(Shown().caption, "\xE8\xBF\x9B\xE5\xBA\xA6 37.50%");
  EXPECT_EQ(::GetWindowTextLengthW(dialog), 9);
  EXPECT_TRUE(::SetWindowTextA(dialog, nullptr));
  EXPECT_EQ(Shown().caption, "");
}

class WindowsIcons : public DialogTest {
 protected:
  WindowsIcons() {
    for (const UINT id : {904u, 905u}) server_.desktop().SetIcon(id);
  }
  static HICON Load(WORD id) {
    const HINSTANCE program = reinterpret_cast<HINSTANCE>(uintptr_t{0x140000000});
    return ::LoadIconW(program, MAKEINTRESOURCEW(id));
  }
};

TEST_F(WindowsIcons, AreShownBigAndSmall) {
  const HWND dialog = Make();
  EXPECT_EQ(::SendMessageW(dialog, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(Load(904))), 0);
  ::SendMessageW(dialog, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(Load(905)));
  EXPECT_EQ(Shown().big_icon, 904);
  EXPECT_EQ(Shown().small_icon, 905);
}

TEST_F(WindowsIcons, GiveTheOneBefore) {
  const HWND dialog = Make();
  ::SendMessageW(dialog, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(Load(904)));
  EXPECT_EQ(::SendMessageW(dialog, WM_SETICON, ICON_BIG, 0), reinterpret_cast<LRESULT>(Load(904)));
  EXPECT_EQ(Shown().big_icon, 0);
}

TEST_F(WindowsIcons, StayAsTheyAreWhenTheProcedureTakesTheMessage) {
  const HWND dialog = Make();
  answer_ = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR { return message == WM_SETICON; };
  ::SendMessageW(dialog, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(Load(904)));
  EXPECT_EQ(Shown().big_icon, 0);
}

TEST_F(WindowsIcons, AreTheSameEveryTime) { EXPECT_EQ(Load(904), Load(904)); }

TEST_F(WindowsIcons, AreNotLoadedWhenThereIsNone) {
  EXPECT_EQ(Load(906), nullptr);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
}

TEST_F(WindowsIcons, AbortForWhatIsNotHonoured) {
  const HWND dialog = Make();
  EXPECT_DEATH(::LoadIconW(nullptr, MAKEINTRESOURCEW(904)), "the system's icons");
  EXPECT_DEATH(::SendMessageW(dialog, WM_SETICON, ICON_BIG, 5), "no icon");
  EXPECT_DEATH(::SendMessageW(dialog, WM_SETICON, 2, 0), "WM_SETICON of size");
}

struct BadTemplate {
  const char* name;
  void (*spoil)(simulator::DialogTemplate& source);
  const char* complaint;
};

std::ostream& operator<<(std::ostream& out, const BadTemplate& test) { return out << test.name; }

class WindowsTemplates : public DialogTest, public testing::WithParamInterface<BadTemplate> {};

TEST_P(WindowsTemplates, AreNotHonouredWhole) {
  simulator::DialogTemplate source = SampleTemplate("caption");
  GetParam().spoil(source);
  server_.desktop().SetDialog(1033, kDialogId, source);
  EXPECT_DEATH(Make(), GetParam().complaint);
}

INSTANTIATE_TEST_SUITE_P(
    All, WindowsTemplates,
    testing::Values(
        BadTemplate{"Style", [](auto& source) { source.style |= WS_CHILD; }, "style of a dialog"},
        BadTemplate{"NoFont", [](auto& source) { source.style &= ~DWORD{DS_SETFONT}; },
                    "style of a dialog"},
        BadTemplate{"ExtendedStyle", [](auto& source) { source.extended_style = 1; },
                    "style of a dialog"},
        BadTemplate{"Face", [](auto& source) { source.font.face = "Arial"; }, "font"},
        BadTemplate{"Points", [](auto& source) { source.font.points = 9; }, "font"},
        BadTemplate{"Class", [](auto& source) { source.controls[0].window_class = "LISTBOX"; },
                    "class LISTBOX"},
        BadTemplate{"ControlStyle", [](auto& source) { source.controls[1].style |= 1; },
                    "style of control 1001"},
        BadTemplate{"NoChild", [](auto& source) { source.controls[1].style = 0; }, "no child"}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tests
