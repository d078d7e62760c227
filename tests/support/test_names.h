// Names of parameterized tests, which GoogleTest otherwise numbers.
#ifndef TESTS_SUPPORT_TEST_NAMES_H_
#define TESTS_SUPPORT_TEST_NAMES_H_

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace tests {

// Returns the text as one word of letters, digits and underscores: "SelDisk2" for "sel disk 2".
// White space ends a word, '.' and '-' within a word become '_', and apostrophes and commas between
// words are left out. Every other character is replaced with its name: "ALess1" for "a<1". The
// empty text becomes "Empty". Different texts may have the same name.
std::string WordsOf(std::string_view text);

// For INSTANTIATE_TEST_SUITE_P. Names each test after its printed parameter. The printed parameters
// of a suite must differ in more than white space and the case of first letters.
struct NamedAsPrinted {
  template <typename Parameter>
  std::string operator()(const testing::TestParamInfo<Parameter>& test) const {
    if constexpr (std::is_convertible_v<const Parameter&, std::string_view>) {
      return WordsOf(test.param);  // GoogleTest prints it with quotation marks
    } else {
      return WordsOf(testing::PrintToString(test.param));
    }
  }
};

}  // namespace tests

#endif  // TESTS_SUPPORT_TEST_NAMES_H_
