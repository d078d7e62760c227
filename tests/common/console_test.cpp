#include "common/console.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/host.h"
#include "support/printed_text.h"

namespace common {
namespace {

using ConsoleTest = tests::HostTest;

TEST_F(ConsoleTest, PrintFormattedPrintsItsTemplate) {
  tests::PrintedText printed;
  PrintFormatted("%d%% of %s\r\n", 50, "C:");
  EXPECT_EQ(printed.Take(), "50% of C:\r\n");
}

TEST_F(ConsoleTest, PrintFormattedCutsNothing) {
  tests::PrintedText printed;
  PrintFormatted("%s", std::string(10'000, 'a').c_str());
  EXPECT_EQ(printed.Take(), std::string(10'000, 'a'));
}

TEST_F(ConsoleTest, PrintTemplateReadsPercentSignsOnce) {
  tests::PrintedText printed;
  PrintTemplate("100%% %%%% %s %n %1$s %");
  EXPECT_EQ(printed.Take(), "100% %% %s %n %1$s %");
}

TEST_F(ConsoleTest, ColorPrintReadsItsResultAsATemplateAgain) {
  tests::PrintedText printed;
  ColorPrint(true, kRed, "%s %d%%%%", "100%% %%%% %s %n %1$s %", 7);
  EXPECT_EQ(printed.Take(), "100% %% %s %n %1$s % 7%");
}

TEST_F(ConsoleTest, ColorPrintTemplateReadsPercentSignsTwice) {
  tests::PrintedText printed;
  ColorPrintTemplate(true, kRed, "100%% %%%% %%%%%%%% %s %n %1$s %");
  EXPECT_EQ(printed.Take(), "100% % %% %s %n %1$s %");
}

TEST_F(ConsoleTest, ColorPrintCutsBehind2046Characters) {
  tests::PrintedText printed;
  ColorPrint(true, kGreen, "%s\r\n", std::string(3000, 'a').c_str());
  EXPECT_EQ(printed.Take(), std::string(2046, 'a'));
}

TEST_F(ConsoleTest, ColorPrintCutsBeforeItReadsTheTemplateAgain) {
  tests::PrintedText printed;
  ColorPrint(true, kGreen, "%s", std::string(3000, '%').c_str());
  EXPECT_EQ(printed.Take(), std::string(1023, '%'));
}

TEST_F(ConsoleTest, ColorPrintTemplateCutsBehind2046Characters) {
  tests::PrintedText printed;
  ColorPrintTemplate(true, kGreen, std::string(3000, 'a') + "\r\n");
  EXPECT_EQ(printed.Take(), std::string(2046, 'a'));
}

// Leaves nothing on the stack that a call before has left there.
void ScribbleOnTheStack() {
  std::array<volatile unsigned char, 4096> bytes;
  for (volatile unsigned char& byte : bytes) byte = 0xFF;
}

TEST_F(ConsoleTest, TheColourPrintersFormatTheirText) {
  tests::PrintedText printed;
  ScribbleOnTheStack();
  PrintRed(true, "%s %d\r\n", "red", 4);
  ScribbleOnTheStack();
  PrintYellow(true, "%s %d\r\n", "yellow", 6);
  ScribbleOnTheStack();
  PrintGreen(false, "%s %d\r\n", "green", 2);
  ScribbleOnTheStack();
  ColorPrint(false, kRed, "%s %d\r\n", "grey", 3);
  EXPECT_EQ(printed.Take(), "red 4\r\nyellow 6\r\ngreen 2\r\ngrey 3\r\n");
}

TEST_F(ConsoleTest, PrintsNothingForAnEmptyText) {
  tests::PrintedText printed;
  PrintTemplate("");
  ColorPrint(true, kRed, "%s", "");
  ColorPrintTemplate(true, kRed, "");
  EXPECT_EQ(printed.Take(), "");
}

}  // namespace
}  // namespace common
