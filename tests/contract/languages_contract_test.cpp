// The languages of the system and of a thread.
#include <windows.h>

#include <thread>

#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class LanguageContract : public HostTest {};

TEST_F(LanguageContract, TheSystemHasOne) {
  constexpr LANGID kPrimary = 0x3FF;
  EXPECT_NE(::GetSystemDefaultLangID() & kPrimary, 0);
}

TEST_F(LanguageContract, AThreadIsToldTheLanguageItHasSet) {
  std::thread([] {
    for (const LANGID language : {LANGID{1033}, LANGID{2052}}) {
      EXPECT_EQ(::SetThreadUILanguage(language), language);
    }
  }).join();
}

TEST_F(LanguageContract, AThreadSetsItsLocale) {
  std::thread([] {
    for (const LCID locale : {LCID{1033}, LCID{2052}}) EXPECT_TRUE(::SetThreadLocale(locale));
  }).join();
}

TEST_F(LanguageContract, ALocaleOfReservedBitsIsRefused) {
  EXPECT_EQ(ErrorOf([] { return ::SetThreadLocale(0x0100'0804); }), ERROR_INVALID_PARAMETER);
}

}  // namespace
}  // namespace tests
