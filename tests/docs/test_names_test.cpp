// What a listing of the tests shows of those that are parameterised.
#include "support/test_names.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <string>
#include <string_view>

namespace tests {
namespace {

TEST(WordsOf, AreOneWordOfLettersAndDigits) {
  EXPECT_EQ(WordsOf("sel disk 2"), "SelDisk2");
  EXPECT_EQ(WordsOf("sel disk 1\r\nsel part 1"), "SelDisk1SelPart1");
  EXPECT_EQ(WordsOf("a volume's root, a folder"), "AVolumesRootAFolder");
  EXPECT_EQ(WordsOf("GetWindowRect"), "GetWindowRect");
  EXPECT_EQ(WordsOf("german_server"), "German_server");
  EXPECT_EQ(WordsOf("en-10.0.17763.txt"), "En_10_0_17763_txt");
}

TEST(WordsOf, NameWhatIsNoLetter) {
  EXPECT_EQ(WordsOf(""), "Empty");
  EXPECT_EQ(WordsOf(" "), "Empty");
  EXPECT_EQ(WordsOf("-5"), "Minus5");
  EXPECT_EQ(WordsOf("a<=1"), "ALessEquals1");
  EXPECT_EQ(WordsOf("C:\\..\\b"), "CColonBackslashDotDotBackslashB");
  EXPECT_EQ(WordsOf(std::string_view("a\0\xC3\x7F", 4)), "AZeroXC3X7F");
}

// Calls `look` with each parameterised test of this program.
template <typename Look>
void ForEachParameterised(const Look& look) {
  const testing::UnitTest& program = *testing::UnitTest::GetInstance();
  for (int i = 0; i < program.total_test_suite_count(); ++i) {
    const testing::TestSuite& suite = *program.GetTestSuite(i);
    for (int j = 0; j < suite.total_test_count(); ++j) {
      const testing::TestInfo& test = *suite.GetTestInfo(j);
      if (test.value_param() != nullptr) {
        look(std::string(suite.name()) + "." + test.name(), std::string_view(test.value_param()));
      }
    }
  }
}

TEST(ParameterisedTests, HaveNamesAndNoNumbers) {
  int count = 0;
  ForEachParameterised([&count](const std::string& name, std::string_view) {
    const std::string last = name.substr(name.rfind('/') + 1);
    EXPECT_TRUE(std::any_of(last.begin(), last.end(), [](unsigned char c) {
      return std::isalpha(c) != 0;
    })) << name;
    ++count;
  });
  EXPECT_GT(count, 100);
}

TEST(ParameterisedTests, PrintTheirParametersAsText) {
  ForEachParameterised([](const std::string& name, std::string_view parameter) {
    EXPECT_FALSE(parameter.empty()) << name;
    EXPECT_TRUE(std::all_of(parameter.begin(), parameter.end(),
                            [](unsigned char c) { return std::isprint(c) != 0; }))
        << name << ": " << parameter;
    EXPECT_EQ(parameter.find("-byte object <"), std::string_view::npos)
        << name << ": " << parameter;
    // Of a `const char*`: an address that is another one in every run.
    EXPECT_EQ(parameter.find(" pointing to "), std::string_view::npos) << name << ": " << parameter;
  });
}

}  // namespace
}  // namespace tests
