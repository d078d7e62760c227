#include <windows.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/resources.h"
#include "support/test_names.h"

namespace {

using simulator::ControlTemplate;
using simulator::DialogRectangle;
using simulator::DialogTemplate;
using simulator::ReadResources;
using simulator::Resources;

DialogTemplate Read(const std::string& script) {
  const Resources read = ReadResources(script, "#define IDD_MAIN 101\n#define IDC_LOG 1005\n");
  EXPECT_EQ(read.error, "");
  EXPECT_EQ(read.dialogs.size(), 1u);
  return read.dialogs.empty() ? DialogTemplate() : read.dialogs.begin()->second;
}

// A dialog with that one control.
ControlTemplate ReadControl(const std::string& statement) {
  const DialogTemplate dialog = Read("101 DIALOGEX 0, 0, 9, 9\nBEGIN\n" + statement + "\nEND\n");
  EXPECT_EQ(dialog.controls.size(), 1u);
  return dialog.controls.empty() ? ControlTemplate() : dialog.controls.front();
}

std::string ErrorOf(const std::string& script) { return ReadResources(script, "").error; }

void ExpectRectangle(const DialogRectangle& rectangle, int x, int y, int width, int height) {
  EXPECT_EQ(rectangle.x, x);
  EXPECT_EQ(rectangle.y, y);
  EXPECT_EQ(rectangle.width, width);
  EXPECT_EQ(rectangle.height, height);
}

TEST(ResourceDialogs, HaveAFrameACaptionAndAFont) {
  const DialogTemplate dialog = Read(
      "IDD_MAIN DIALOGEX 1, 2, 315, 119\n"
      "STYLE DS_SETFONT | DS_MODALFRAME | DS_FIXEDSYS | WS_POPUP | WS_CAPTION\n"
      "EXSTYLE WS_EX_TOPMOST\nCAPTION \"Title\"\nFONT 8, \"MS Shell Dlg\", 400, 0, 1\n"
      "BEGIN\nEND\n");
  ExpectRectangle(dialog.rectangle, 1, 2, 315, 119);
  EXPECT_EQ(dialog.style, 0x80C000C8u);
  EXPECT_EQ(dialog.extended_style, 0x8u);
  EXPECT_EQ(dialog.caption, "Title");
  EXPECT_EQ(dialog.font.points, 8);
  EXPECT_EQ(dialog.font.face, "MS Shell Dlg");
  EXPECT_EQ(dialog.font.weight, 400);
  EXPECT_FALSE(dialog.font.italic);
  EXPECT_EQ(dialog.font.charset, 1);
  EXPECT_TRUE(dialog.controls.empty());
}

TEST(ResourceDialogs, ArePopUpsWithBorderAndMenuWithoutAStyle) {
  EXPECT_EQ(Read("101 DIALOG 0, 0, 9, 9\nBEGIN\nEND\n").style, 0x80880000u);
}

TEST(ResourceDialogs, GetTheStylesThatCaptionAndFontStandFor) {
  EXPECT_EQ(
      Read("101 DIALOGEX 0, 0, 9, 9\nCAPTION \"c\"\nFONT 8, \"f\"\nSTYLE WS_CHILD\n{ }").style,
      0x40C00040u);
}

TEST(ResourceDialogs, HaveAFontOfTheDefaultCharacters) {
  const DialogTemplate dialog = Read("101 DIALOGEX 0, 0, 9, 9\nFONT 9, \"f\", 700, 1\n{ }");
  EXPECT_EQ(dialog.font.points, 9);
  EXPECT_EQ(dialog.font.weight, 700);
  EXPECT_TRUE(dialog.font.italic);
  EXPECT_EQ(dialog.font.charset, 1);
}

TEST(ResourceDialogs, BelongToTheLanguageInForceOrTheirOwn) {
  const Resources read = ReadResources(
      "101 DIALOGEX 0, 0, 9, 9\nCAPTION \"a\"\n{ }\n"
      "LANGUAGE LANG_CHINESE, SUBLANG_CHINESE_SIMPLIFIED\n101 DIALOGEX 0, 0, 9, 9\n"
      "CAPTION \"b\"\n{ }\n101 DIALOGEX 0, 0, 9, 9\nLANGUAGE 7, 1\nCAPTION \"c\"\n{ }\n",
      "");
  EXPECT_EQ(read.error, "");
  ASSERT_EQ(read.dialogs.size(), 3u);
  EXPECT_EQ(read.dialogs.at({1033, 101}).caption, "a");
  EXPECT_EQ(read.dialogs.at({2052, 101}).caption, "b");
  EXPECT_EQ(read.dialogs.at({1031, 101}).caption, "c");
}

TEST(ResourceDialogs, KeepTheirControlsInOrder) {
  const DialogTemplate dialog = Read(
      "101 DIALOGEX 0, 0, 9, 9\nBEGIN\n EDITTEXT IDC_LOG, 16, 14, 283, 44\n"
      " LTEXT \"a\", 3, 0, 0, 0, 0\n PUSHBUTTON \"b\", IDCANCEL, 0, 0, 0, 0\nEND\n");
  ASSERT_EQ(dialog.controls.size(), 3u);
  EXPECT_EQ(dialog.controls[0].id, 1005);
  EXPECT_EQ(dialog.controls[1].id, 3);
  EXPECT_EQ(dialog.controls[2].id, IDCANCEL);
}

struct ControlCase {
  const char* name;
  const char* statement;
  const char* window_class;
  DWORD style;
  DWORD extended_style;
};

std::ostream& operator<<(std::ostream& out, const ControlCase& test) { return out << test.name; }

class ResourceControls : public testing::TestWithParam<ControlCase> {};

TEST_P(ResourceControls, HaveTheClassAndTheStylesOfTheirStatement) {
  const ControlTemplate control = ReadControl(GetParam().statement);
  EXPECT_EQ(control.window_class, GetParam().window_class);
  EXPECT_EQ(control.style, GetParam().style);
  EXPECT_EQ(control.extended_style, GetParam().extended_style);
}

// The numbers are those that a resource compiler made of these statements.
INSTANTIATE_TEST_SUITE_P(
    Statements, ResourceControls,
    testing::Values(
        ControlCase{"EditText", "EDITTEXT 5, 1, 2, 3, 4", "EDIT", 0x50810000, 0},
        ControlCase{"EditTextWithStyles",
                    "EDITTEXT 5, 1, 2, 3, 4, ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY | "
                    "WS_VSCROLL",
                    "EDIT", 0x50A10844, 0},
        ControlCase{"EditTextWithoutBorder",
                    "EDITTEXT 5, 1, 2, 3, 4, NOT WS_BORDER, WS_EX_CLIENTEDGE", "EDIT", 0x50010000,
                    0x200},
        ControlCase{"LeftText", "LTEXT \"a\", 5, 1, 2, 3, 4", "STATIC", 0x50020000, 0},
        ControlCase{"LeftTextOutsideAGroup", "LTEXT \"a\", 5, 1, 2, 3, 4, NOT WS_GROUP", "STATIC",
                    0x50000000, 0},
        ControlCase{"PushButton", "PUSHBUTTON \"a\", 5, 1, 2, 3, 4", "BUTTON", 0x50010000, 0},
        ControlCase{"ProgressBar", "CONTROL \"\", 5, \"msctls_progress32\", WS_BORDER, 1, 2, 3, 4",
                    "msctls_progress32", 0x50800000, 0},
        ControlCase{"InvisibleControl",
                    "CONTROL \"a\", 5, \"Static\", NOT WS_VISIBLE | 0x10000, 1, 2, 3, 4, "
                    "WS_EX_TRANSPARENT",
                    "STATIC", 0x40010000, 0x20}),
    tests::NamedAsPrinted());

TEST(ResourceDialogs, ReadWhatEveryControlHas) {
  for (const char* statement :
       {"LTEXT \"text\", 5, 1, -2, 3, 4", "CONTROL \"text\", 5, \"STATIC\", 0, 1, -2, 3, 4"}) {
    const ControlTemplate control = ReadControl(statement);
    EXPECT_EQ(control.id, 5) << statement;
    EXPECT_EQ(control.text, "text") << statement;
    ExpectRectangle(control.rectangle, 1, -2, 3, 4);
  }
}

TEST(ResourceDialogs, GiveControlsWithoutANumberAllOnes) {
  EXPECT_EQ(ReadControl("LTEXT \"a\", -1, 0, 0, 0, 0").id, 0xFFFF);
  EXPECT_EQ(ReadControl("LTEXT \"a\", IDC_STATIC, 0, 0, 0, 0").id, 0xFFFF);
}

TEST(ResourceDialogs, NameTheLineOfWhatIsWrong) {
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9"), "line 1: expected a comma");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 70000\n{ }"), "line 1: a number of more than 16 bits");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9, 9\n{ }"), "line 1: an unknown statement of a dialog");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\nMENU 3\n{ }"),
            "line 2: an unknown statement of a dialog");
  EXPECT_EQ(ErrorOf("101 DIALOG 0, 0, 9, 9\nFONT 8, \"f\", 400\n{ }"),
            "line 2: an unknown statement of a dialog");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\nSTYLE WS_NONE\n{ }"),
            "line 2: expected a number or a known name");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\n{\nCOMBOBOX 1, 0, 0, 0, 0 }"),
            "line 3: an unknown control");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\n{\nLTEXT 5, 1, 2, 3, 4 }"),
            "line 3: expected a text");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\n{ LTEXT \"a\", 5, 1, 2, 3, 4\n"),
            "line 3: a dialog without an end");
  EXPECT_EQ(ErrorOf("101 DIALOGEX 0, 0, 9, 9\n{ }\n101 DIALOGEX 0, 0, 9, 9\n{ }\n"),
            "line 5: a second dialog of the same id");
}

}  // namespace
