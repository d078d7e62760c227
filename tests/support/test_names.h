// Names of parameterised tests, which GoogleTest otherwise numbers.
#ifndef TESTS_SUPPORT_TEST_NAMES_H_
#define TESTS_SUPPORT_TEST_NAMES_H_

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace tests {

// The text as one word of letters, digits and underscores: "sel disk 2" is "SelDisk2". White space
// ends a word, '.' and '-' within one become '_', apostrophes and commas between words are left
// out. Every other character is named, "a<1" is "ALess1", and the empty text is "Empty". Different
// texts may have the same name.
std::string WordsOf(std::string_view text);

// For INSTANTIATE_TEST_SUITE_P: names each test by the words of its parameter as it is printed. The
// printed texts of a suite must differ in more than white space and the case of first letters.
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
