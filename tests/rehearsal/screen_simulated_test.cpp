#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "rehearsal/screen.h"
#include "rehearsal/screen_picture.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/nls/code_page.h"
#include "support/simulated_shown_dialog.h"

namespace simulator {
namespace {

constexpr const char* kEraseSeven = "\x1b[7A\x1b[J";

// As a terminal shows it, whose width makes no difference here.
std::string Picture(const ShownDialog& dialog) {
  std::string picture;
  for (const std::string& line : DialogPicture(dialog, 78)) picture += line + "\n";
  return picture;
}

class PlainScreen : public testing::Test {
 protected:
  std::ostringstream out_;
  Screen screen_{out_, Screen::Kind::kPlain, kUtf8CodePage};
};

TEST_F(PlainScreen, ShowsLinesOfTheLogOnceTheyAreWhole) {
  screen_.ShowLog("[Info] a");
  EXPECT_EQ(out_.str(), "");
  screen_.ShowLog("b\r\n\r\n[time] [Error] c\r\nd");
  EXPECT_EQ(out_.str(), "[Info] ab\n\n[time] [Error] c\n");
}

TEST_F(PlainScreen, ShowsBoxesWithTheirAnswers) {
  screen_.ShowBox({nullptr, "Sure?", "Tool", MB_OKCANCEL, 0}, IDOK);
  screen_.ShowBox({nullptr, "Sure?", "Tool", MB_OKCANCEL, 0}, IDCANCEL);
  EXPECT_EQ(out_.str(),
            "message box [Tool]: Sure? -> OK\n"
            "message box [Tool]: Sure? -> Cancel\n");
}

TEST_F(PlainScreen, ShowsADialogThatLooksDifferent) {
  ShownDialog dialog = tests::VisibleDialog("t");
  screen_.ShowDialog(dialog);
  dialog.small_icon = 106;
  screen_.ShowDialog(dialog);
  tests::Bar(dialog).state = PBST_ERROR;
  screen_.ShowDialog(dialog);
  EXPECT_EQ(out_.str(),
            "dialog: t  [                    ]\n"
            "dialog: t  [                    ] error\n");
}

TEST_F(PlainScreen, ShowsNoDialogThatIsNotToBeSeen) {
  ShownDialog dialog = tests::VisibleDialog("t");
  dialog.visible = false;
  screen_.ShowDialog(dialog);
  dialog.destroyed = true;
  screen_.ShowDialog(dialog);
  EXPECT_EQ(out_.str(), "");
}

TEST(ScreenOfACodePage, ShowsLinesInUtf8) {
  std::ostringstream out;
  Screen screen(out, Screen::Kind::kPlain, 936);
  // The pair DF 5C in two pieces.
  screen.ShowLog("C:\\\xDF");
  screen.ShowLog("\\\xD6\xD0\r\n");
  EXPECT_EQ(out.str(), "C:\\運中\n");
}

class TerminalScreen : public testing::Test {
 protected:
  // What was written since the last time.
  std::string Take() {
    std::string text = out_.str();
    out_.str("");
    return text;
  }

  std::ostringstream out_;
  Screen screen_{out_, Screen::Kind::kTerminal, kUtf8CodePage};
};

TEST_F(TerminalScreen, ColoursTheLog) {
  screen_.ShowLog("[t] [Error] a\n[t] [Info]  b\n");
  EXPECT_EQ(Take(), "\x1b[91m[t] [Error] a\x1b[0m\n[t] [Info]  b\n");
}

TEST_F(TerminalScreen, DrawsTheDialogInPlace) {
  ShownDialog dialog = tests::VisibleDialog("one");
  screen_.ShowDialog(dialog);
  EXPECT_EQ(Take(), Picture(dialog));
  screen_.ShowDialog(dialog);
  EXPECT_EQ(Take(), "");
  dialog.caption = "two";
  screen_.ShowDialog(dialog);
  EXPECT_EQ(Take(), kEraseSeven + Picture(dialog));
}

TEST_F(TerminalScreen, KeepsTheDialogBelowTheLog) {
  const ShownDialog dialog = tests::VisibleDialog("t");
  screen_.ShowDialog(dialog);
  Take();
  screen_.ShowLog("a\n");
  EXPECT_EQ(Take(), kEraseSeven + ("a\n" + Picture(dialog)));
  screen_.ShowBox({nullptr, "Sure?", "Tool", MB_OK, 0}, IDOK);
  EXPECT_EQ(Take(), kEraseSeven + ("message box [Tool]: Sure? -> OK\n" + Picture(dialog)));
}

TEST_F(TerminalScreen, TakesAHiddenDialogAway) {
  ShownDialog dialog = tests::VisibleDialog("t");
  screen_.ShowDialog(dialog);
  Take();
  dialog.visible = false;
  screen_.ShowDialog(dialog);
  EXPECT_EQ(Take(), kEraseSeven);
}

TEST_F(TerminalScreen, LeavesADestroyedDialogWhereItWas) {
  ShownDialog dialog = tests::VisibleDialog("t");
  screen_.ShowDialog(dialog);
  Take();
  dialog.visible = false;
  dialog.destroyed = true;
  screen_.ShowDialog(dialog);
  screen_.ShowLog("a\n");
  EXPECT_EQ(Take(), "a\n");
}

}  // namespace
}  // namespace simulator
