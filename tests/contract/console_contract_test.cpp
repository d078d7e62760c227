// The console and windows, as far as they are there.
#include <windows.h>

#include <stdio.h>

#include <string>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class ConsoleContract : public HostTest {};

TEST_F(ConsoleContract, OtherNumbersAreNoStandardHandles) {
  for (const int number : {0, 1, 7, -1, -9, -13}) {
    ::SetLastError(kNobodysError);
    EXPECT_EQ(::GetStdHandle(static_cast<DWORD>(number)), INVALID_HANDLE_VALUE) << number;
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_HANDLE}) << number;
  }
}

TEST_F(ConsoleContract, StandardOutputIsTheSameHandleEveryTime) {
  EXPECT_EQ(::GetStdHandle(STD_OUTPUT_HANDLE), ::GetStdHandle(STD_OUTPUT_HANDLE));
}

TEST_F(ConsoleContract, KeepsItsAttributesUntilTheyAreSet) {
  const HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
  CONSOLE_SCREEN_BUFFER_INFO before{};
#ifdef _WIN32
  if (!::GetConsoleScreenBufferInfo(console, &before)) {
    GTEST_SKIP() << "the tests' standard output is no console";
  }
#endif
  ASSERT_TRUE(::GetConsoleScreenBufferInfo(console, &before));
  constexpr WORD kBright = FOREGROUND_RED | FOREGROUND_INTENSITY;
  EXPECT_TRUE(::SetConsoleTextAttribute(console, kBright));
  CONSOLE_SCREEN_BUFFER_INFO info{};
  EXPECT_TRUE(::GetConsoleScreenBufferInfo(console, &info));
  EXPECT_EQ(info.wAttributes, kBright);
  EXPECT_TRUE(::SetConsoleTextAttribute(console, before.wAttributes));
  EXPECT_TRUE(::GetConsoleScreenBufferInfo(console, &info));
  EXPECT_EQ(info.wAttributes, before.wAttributes);
  EXPECT_GT(info.dwSize.X, 0);
  EXPECT_GE(info.dwSize.Y, info.srWindow.Bottom);
}

class WindowContract : public HostTest {
 protected:
  static HWND NoWindow() { return reinterpret_cast<HWND>(UINT_PTR{0x123'4560}); }
};

TEST_F(WindowContract, NothingIsPostedToWhatIsNoWindow) {
  EXPECT_EQ(ErrorOf([] { return ::PostMessageA(NoWindow(), WM_USER + 1, 0, 0); }),
            ERROR_INVALID_WINDOW_HANDLE);
  EXPECT_EQ(ErrorOf([] { return ::PostMessageW(NoWindow(), WM_USER + 1, 0, 0); }),
            ERROR_INVALID_WINDOW_HANDLE);
}

TEST_F(WindowContract, ABoxNeedsAnOwnerThatIsThere) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kMessageBoxOwner;
  EXPECT_EQ(ErrorOf([] { return ::MessageBoxA(NoWindow(), "text", "caption", MB_OK); }),
            ERROR_INVALID_WINDOW_HANDLE);
}

}  // namespace
}  // namespace tests
