#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rehearsal/screen_picture.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "support/simulated_shown_dialog.h"

namespace simulator {
namespace {

using tests::Bar;
using tests::Log;
using tests::Note;
using tests::VisibleDialog;
using Lines = std::vector<std::string>;

TEST(BarPercent, IsOfTheRange) {
  ShownDialog dialog = VisibleDialog("t");
  Bar(dialog).minimum = 100;
  Bar(dialog).maximum = 300;
  Bar(dialog).position = 199;
  EXPECT_EQ(BarPercent(dialog), 49);
  EXPECT_EQ(BarPercent(ShownDialog()), 0);
}

TEST(DialogLine, ShowsTheTitleAndTheBar) {
  ShownDialog dialog = VisibleDialog("Tool - Progress 37.50%  Time: 0s");
  Bar(dialog).position = 37;
  EXPECT_EQ(DialogLine(dialog), "Tool - Progress 37.50%  Time: 0s  [=======             ]");
  Bar(dialog).position = 100;
  EXPECT_EQ(DialogLine(dialog), "Tool - Progress 37.50%  Time: 0s  [====================]");
}

TEST(DialogLine, NamesAStateThatIsNotTheNormalOne) {
  ShownDialog dialog = VisibleDialog("t");
  Bar(dialog).state = PBST_ERROR;
  EXPECT_EQ(DialogLine(dialog), "t  [                    ] error");
  Bar(dialog).state = PBST_PAUSED;
  EXPECT_EQ(DialogLine(dialog), "t  [                    ] paused");
}

TEST(DialogPicture, FramesEverything) {
  ShownDialog dialog = VisibleDialog("Tool - Progress");
  Log(dialog).text = "one\r\ntwo\r\n";
  Bar(dialog).position = 50;
  EXPECT_EQ(DialogPicture(dialog, 40), (Lines{
                                           "+-[105] Tool - Progress ---------------+",
                                           "| one                                  |",
                                           "| two                                  |",
                                           "|                                      |",
                                           "| [=================                 ] |",
                                           "| A note.                   [ Cancel ] |",
                                           "+--------------------------------------+",
                                       }));
}

TEST(DialogPicture, ShowsTheLastLinesOfTheLog) {
  ShownDialog dialog = VisibleDialog("t");
  Log(dialog).text = "1\n2\n3\n4\n5";
  const Lines picture = DialogPicture(dialog, 40);
  ASSERT_EQ(picture.size(), 7u);
  for (const size_t row : {1u, 2u, 3u}) EXPECT_EQ(picture[row][2], '2' + static_cast<char>(row));
}

TEST(DialogPicture, HasTheSameSizeWhateverItShows) {
  ShownDialog full = VisibleDialog(std::string(100, 't'));
  Log(full).text = std::string(100, 'x') + "\n\n\x1b[2J\ta\n\n\n";
  Note(full).text = "注意：正在进行迁云后系统还原检测工作，请不要关闭此程序。";
  Bar(full).position = 100;
  Bar(full).state = PBST_ERROR;
  ShownDialog bare;
  for (const ShownDialog& dialog : {full, bare}) {
    for (const size_t columns : {size_t{40}, size_t{41}, size_t{78}}) {
      const Lines picture = DialogPicture(dialog, columns);
      EXPECT_EQ(picture.size(), 7u);
      for (const std::string& line : picture) {
        EXPECT_EQ(Columns(line), columns) << line;
        EXPECT_EQ(line.find('\x1b'), std::string::npos);
      }
    }
  }
}

TEST(Columns, AreTwoOfAWideCharacter) {
  EXPECT_EQ(Columns("Größe"), 5u);
  EXPECT_EQ(Columns("取消"), 4u);
  EXPECT_EQ(Columns("：\xF0\xA0\x80\x80"), 4u);
}

}  // namespace
}  // namespace simulator
