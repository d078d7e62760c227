#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "common/console.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"

namespace common {
namespace {

using Spans = std::vector<std::pair<WORD, std::string>>;

Spans SpansOf(simulator::Server& server) {
  Spans spans;
  for (const simulator::ConsoleSpan& span : server.console().Spans()) {
    spans.emplace_back(span.attributes, span.text);
  }
  return spans;
}

TEST(ColorPrint, PrintsInItsColourAndRestoresTheOldOne) {
  simulator::Server server;
  server.console().SetAttributes(0x1F);
  PrintFormatted("before ");
  ColorPrint(false, 5, "%s", "in colour");
  PrintFormatted(" after");
  EXPECT_EQ(SpansOf(server), (Spans{{0x1F, "before "}, {5, "in colour"}, {0x1F, " after"}}));
}

TEST(ColorPrint, AddsTheIntensityWhenBright) {
  simulator::Server server;
  ColorPrint(true, 5, "bright");
  EXPECT_EQ(SpansOf(server), (Spans{{13, "bright"}}));
}

TEST(ColorPrint, HasOnePrinterForEachColour) {
  simulator::Server server;
  PrintRed(false, "r");
  PrintYellow(false, "y");
  PrintGreen(false, "g");
  PrintRed(true, "R");
  PrintYellow(true, "Y");
  PrintGreen(true, "G");
  EXPECT_EQ(SpansOf(server),
            (Spans{{4, "r"}, {6, "y"}, {2, "g"}, {0x0C, "R"}, {0x0E, "Y"}, {0x0A, "G"}}));
  EXPECT_EQ(server.console().Attributes(), 7);
}

TEST(ColorPrint, AsksTheConsoleOfStandardOutput) {
  simulator::Server server;
  PrintRed(true, "x");
  std::vector<std::string> names;
  for (const simulator::TracedCall& call : server.calls().Trace()) names.push_back(call.name);
  EXPECT_EQ(names,
            (std::vector<std::string>{"GetStdHandle", "GetConsoleScreenBufferInfo",
                                      "SetConsoleTextAttribute", "SetConsoleTextAttribute"}));
  EXPECT_EQ(server.calls().ArgumentsOf("GetStdHandle"), std::vector<std::string>{"-11"});
}

TEST(ColorPrint, PrintsAllTheSameWhenTheConsoleRefuses) {
  for (const std::string call :
       {"GetStdHandle", "GetConsoleScreenBufferInfo", "SetConsoleTextAttribute"}) {
    simulator::Server server;
    server.calls().FailNext(call, ERROR_INVALID_HANDLE, 1, simulator::Lasting::kForGood);
    PrintRed(true, "%s", "text");
    EXPECT_EQ(server.console().Text(), "text") << call;
    EXPECT_EQ(server.console().Attributes(), 7) << call;
  }
}

}  // namespace
}  // namespace common
