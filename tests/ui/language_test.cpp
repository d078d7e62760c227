#include "ui/language.h"

#include <gtest/gtest.h>

namespace ui {
namespace {

TEST(ResourceLanguage, IsChineseOnASystemOfThatLanguageAlone) {
  EXPECT_EQ(ResourceLanguage(2052), 2052);
}

TEST(ResourceLanguage, IsEnglishOnEveryOther) {
  // Taiwan, Hong Kong, Singapore, Macao; Japan; the neutral languages.
  for (const int language : {1033, 2057, 1028, 3076, 4100, 5124, 1041, 1031, 4, 9, 0, 0xFFFF}) {
    EXPECT_EQ(ResourceLanguage(static_cast<uint16_t>(language)), 1033) << language;
  }
}

TEST(HasThreadUILanguage, FromWindowsVistaOn) {
  for (const uint32_t major : {6U, 7U, 10U, 0xFFFFFFFFU})
    EXPECT_TRUE(HasThreadUILanguage(2, major));
  for (const uint32_t major : {0U, 4U, 5U}) EXPECT_FALSE(HasThreadUILanguage(2, major));
}

TEST(HasThreadUILanguage, OnWindowsNtAlone) {
  for (const uint32_t platform : {0U, 1U, 3U}) EXPECT_FALSE(HasThreadUILanguage(platform, 6));
}

}  // namespace
}  // namespace ui
