// What GetFullPathNameW makes of a path.
#include <windows.h>

#include <array>
#include <ostream>
#include <string>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"
#include "support/test_names.h"

namespace tests {
namespace {

std::wstring FullPathOf(const std::wstring& path) {
  std::array<wchar_t, 300> buffer{};
  const DWORD length =
      ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(buffer.size()), buffer.data(), nullptr);
  return {buffer.data(), length};
}

struct FullPathExample {
  const char* name;
  const wchar_t* path;
  const wchar_t* full;
};

std::ostream& operator<<(std::ostream& out, const FullPathExample& test) {
  return out << test.name;
}

class FullPathContract : public HostTest {};

class FullPathContractOf : public HostTest, public testing::WithParamInterface<FullPathExample> {};

TEST_P(FullPathContractOf, GivesIt) { EXPECT_EQ(FullPathOf(GetParam().path), GetParam().full); }

INSTANTIATE_TEST_SUITE_P(
    Rules, FullPathContractOf,
    testing::Values(FullPathExample{"File", L"C:\\a\\b.txt", L"C:\\a\\b.txt"},
                    FullPathExample{"SlashesAndTheirDoubles", L"c:/a//b/", L"c:\\a\\b\\"},
                    FullPathExample{"FolderItselfAndAbove", L"C:\\a\\.\\b\\..\\c", L"C:\\a\\c"},
                    FullPathExample{"AboveTheRoot", L"C:\\..\\..\\a", L"C:\\a"},
                    FullPathExample{"FinalDotsAndBlanks", L"C:\\a. .", L"C:\\a"},
                    FullPathExample{"FinalBlank", L"C:\\a ", L"C:\\a"},
                    FullPathExample{"BlankBehindAFolder", L"C:\\a \\b", L"C:\\a \\b"},
                    FullPathExample{"ThreeDots", L"C:\\a\\...", L"C:\\a\\"},
                    FullPathExample{"BlankAlone", L"C:\\a\\ ", L"C:\\a\\"},
                    FullPathExample{"Root", L"C:\\", L"C:\\"},
                    FullPathExample{"FreeDrive", L"q:", L"q:\\"},
                    FullPathExample{"NameOnAFreeDrive", L"q:a", L"q:\\a"},
                    FullPathExample{"MissingName", L"C:\\missing\\\u00E4", L"C:\\missing\\\u00E4"},
                    FullPathExample{"AboveTheShare", L"\\\\server\\share\\a\\..\\..\\b",
                                    L"\\\\server\\share\\b"},
                    FullPathExample{"ShareWithSlashes", L"//server/share/", L"\\\\server\\share\\"},
                    FullPathExample{"Verbatim", L"\\\\?\\C:\\a\\..\\b", L"\\\\?\\C:\\b"},
                    FullPathExample{"VerbatimFile", L"\\\\?\\C:\\a", L"\\\\?\\C:\\a"},
                    FullPathExample{"Device", L"\\\\.\\a", L"\\\\.\\a"}),
    NamedAsPrinted());

TEST_F(FullPathContract, CountsNoTerminatorOfWhatFits) {
  std::array<wchar_t, 5> buffer{};
  EXPECT_EQ(::GetFullPathNameW(L"C:\\a", 5, buffer.data(), nullptr), 4u);
  EXPECT_EQ(std::wstring(buffer.data()), L"C:\\a");
}

TEST_F(FullPathContract, CountsTheTerminatorOfWhatDoesNotFit) {
  std::array<wchar_t, 5> buffer{L'x'};
  EXPECT_EQ(::GetFullPathNameW(L"C:\\a", 4, buffer.data(), nullptr), 5u);
  EXPECT_EQ(buffer[0], L'x');
  EXPECT_EQ(::GetFullPathNameW(L"C:\\a", 0, nullptr, nullptr), 5u);
}

TEST_F(FullPathContract, HasNoneForTheEmptyPathAndForBlanks) {
  for (const wchar_t* path : {L"", L"  "}) {
    EXPECT_EQ(::GetFullPathNameW(path, 0, nullptr, nullptr), 0u);
  }
}

TEST_F(FullPathContract, RefusesTheNameOfTheEmptyPath) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kEmptyFullPath;
  EXPECT_EQ(ErrorOf([] { return ::GetFullPathNameW(L"", 0, nullptr, nullptr); }),
            DWORD{ERROR_INVALID_NAME});
}

}  // namespace
}  // namespace tests
