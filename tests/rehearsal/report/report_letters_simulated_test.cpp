#include <gtest/gtest.h>

#include "rehearsal/report/report_letters.h"

namespace simulator {
namespace {

constexpr uint64_t kGB = uint64_t{1} << 30;

const LetterReason kTaken = {LetterCause::kTaken, "G: is taken"};

TEST(LetterReport, LinesUpTheVolumesAndMarksTheWrongOnes) {
  EXPECT_EQ(LetterReport({{0, 2, "Windows", 126 * kGB, 'C', 'C', 'C'},
                          {1, 1, "Data", 40 * kGB, 'D', 'E', 'D'},
                          {12, 1, "Archive", 2999 * kGB, 'G', std::nullopt, 'F', kTaken}}),
            "  disk  partition  label       size  source  before  after\n"
            "  0     2          Windows   126 GB  C:      C:      C:\n"
            "  1     1          Data       40 GB  D:      E:      D:\n"
            "  12    1          Archive  2999 GB  G:      -       F:     <-- wrong: G: is taken\n"
            "letters: 2 of 3 right\n");
}

TEST(LetterReport, TakesALetterThatIsGoneForWrong) {
  EXPECT_EQ(LetterReport({{1, 1, "", 40 * kGB, 'D', 'D', std::nullopt, kTaken}}),
            "  disk  partition  label   size  source  before  after\n"
            "  1     1                 40 GB  D:      D:      -      <-- wrong: G: is taken\n"
            "letters: 0 of 1 right\n");
}

TEST(LetterReport, ShowsAVolumeThatTheSourceDidNotHaveWithoutCountingIt) {
  EXPECT_EQ(LetterReport({{1, 1, "Data", 40 * kGB, 'D', 'D', 'D'},
                          {1, 2, "Tools", 20 * kGB, std::nullopt, 'E', 'E'}}),
            "  disk  partition  label   size  source  before  after\n"
            "  1     1          Data   40 GB  D:      D:      D:\n"
            "  1     2          Tools  20 GB  -       E:      E:\n"
            "letters: 1 of 1 right\n");
}

TEST(LetterReport, CountsCharactersOfALabelNotBytes) {
  EXPECT_EQ(LetterReport({{1, 1, "Größen", 40 * kGB, 'D', 'D', 'D'}}),
            "  disk  partition  label    size  source  before  after\n"
            "  1     1          Größen  40 GB  D:      D:      D:\n"
            "letters: 1 of 1 right\n");
}

TEST(LetterReport, ClaimsNothingWithoutAVolumeOfTheSource) {
  EXPECT_EQ(LetterReport({}), "letters: nothing to compare\n");
  EXPECT_EQ(LetterReport({{1, 1, "", kGB, std::nullopt, 'D', 'D'}}),
            "letters: nothing to compare\n");
}

}  // namespace
}  // namespace simulator
