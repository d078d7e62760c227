#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rehearsal/options.h"

namespace simulator {
namespace {

using Arguments = std::vector<std::string>;

TEST(RehearseOptions, AreTheDefaultsWithoutArguments) {
  Options options;
  EXPECT_EQ(ParseArguments({}, options), "");
  EXPECT_EQ(options.scenario, "default");
  EXPECT_EQ(options.logs, "out/Logs");
  EXPECT_FALSE(options.language);
  EXPECT_EQ(options.intention.wish, Wish::kRestart);
  EXPECT_FALSE(options.windows);
  EXPECT_TRUE(options.json.empty());
  EXPECT_FALSE(options.strict);
  EXPECT_FALSE(options.list);
  EXPECT_FALSE(options.help);
}

TEST(RehearseOptions, TellTheProgramOfWindows) {
  Options options;
  EXPECT_EQ(ParseArguments({"--windows", "--answer", "later"}, options), "");
  EXPECT_TRUE(options.windows);
}

TEST(RehearseOptions, TakeEveryOptionTogether) {
  Options options;
  EXPECT_EQ(ParseArguments({"--scenario", "x", "--logs", "y", "--language", "2052", "--answer",
                            "cancel-at", "40", "--json", "z", "--strict", "--list", "--help"},
                           options),
            "");
  EXPECT_EQ(options.scenario, "x");
  EXPECT_EQ(options.logs, "y");
  EXPECT_EQ(options.json, "z");
  EXPECT_TRUE(options.strict);
  EXPECT_EQ(options.language, 2052);
  EXPECT_EQ(options.intention.wish, Wish::kCancel);
  EXPECT_EQ(options.intention.percent, 40);
  EXPECT_TRUE(options.list);
  EXPECT_TRUE(options.help);
}

TEST(RehearseOptions, KnowTheAnswers) {
  Options options;
  EXPECT_EQ(ParseArguments({"--answer", "later"}, options), "");
  EXPECT_EQ(options.intention.wish, Wish::kLater);
  EXPECT_EQ(ParseArguments({"--answer", "restart"}, options), "");
  EXPECT_EQ(options.intention.wish, Wish::kRestart);
}

TEST(RehearseOptions, NameWhatIsWrong) {
  const struct {
    Arguments arguments;
    const char* wrong;
  } kCases[] = {
      {{"--windows", "--answer", "cancel-at", "40"}, "--answer cancel-at is not for --windows"},
      {{"--quick"}, "unknown argument \"--quick\""},
      {{"40"}, "unknown argument \"40\""},
      {{"--scenario"}, "--scenario needs a value"},
      {{"--logs", ""}, "--logs needs a value"},
      {{"--json"}, "--json needs a value"},
      {{"--language"}, "--language needs a LANGID from 1 to 65535"},
      {{"--language", "0"}, "--language needs a LANGID from 1 to 65535"},
      {{"--language", "65536"}, "--language needs a LANGID from 1 to 65535"},
      {{"--language", "zh-CN"}, "--language needs a LANGID from 1 to 65535"},
      {{"--language", "99999999999"}, "--language needs a LANGID from 1 to 65535"},
      {{"--answer"}, "--answer needs restart, later or cancel-at PERCENT"},
      {{"--answer", "yes"}, "--answer needs restart, later or cancel-at PERCENT"},
      {{"--answer", "cancel-at"}, "--answer cancel-at needs a percent from 0 to 100"},
      {{"--answer", "cancel-at", "101"}, "--answer cancel-at needs a percent from 0 to 100"},
      {{"--answer", "cancel-at", "-1"}, "--answer cancel-at needs a percent from 0 to 100"},
      {{"--answer", "cancel-at", "40%"}, "--answer cancel-at needs a percent from 0 to 100"},
  };
  for (const auto& [arguments, wrong] : kCases) {
    Options options;
    EXPECT_EQ(ParseArguments(arguments, options), wrong);
  }
}

TEST(RehearseOptions, AreAllInTheHelp) {
  for (const char* const option :
       {"--scenario NAME", "--scenario FILE", "--language LANGID", "--answer restart",
        "--answer later", "--answer cancel-at PERCENT", "--logs FOLDER", "--json FILE", "--strict",
        "--list", "--help"}) {
    EXPECT_NE(kHelp.find(std::string("\n  ") + option), std::string_view::npos) << option;
  }
}

}  // namespace
}  // namespace simulator
