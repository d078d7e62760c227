// Paths of A calls where the ANSI code page has pairs of bytes. The second byte may be a backslash,
// which is then no separator.
#include <windows.h>

#include <direct.h>
#include <io.h>
#include <share.h>
#include <shlwapi.h>
#include <stdio.h>

#include <string>

#include "common/owner.h"
#include "support/code_page.h"
#include "support/host.h"

namespace tests {
namespace {

// U+904B, U+8AA0.
constexpr char kYun[] = "\xDF\\";
constexpr char kCheng[] = "\xD5\\";

// Under Wine, wine/tests runs them in the locale that has this code page.
class DoubleBytePathContract : public HostTest {
 protected:
  void SetUp() override {
    if (!UseAnsiCodePage(936)) GTEST_SKIP() << "the ANSI code page is not 936";
  }

  std::string PathTo(const std::string& name) { return Folder() + "\\" + name; }
  std::wstring Wide(const std::wstring& name) {
    return std::wstring(Folder().begin(), Folder().end()) + L"\\" + name;
  }
};

TEST_F(DoubleBytePathContract, AFolderIsMadeUnderItsWideName) {
  EXPECT_EQ(::_mkdir(PathTo(kYun).c_str()), 0);
  EXPECT_NE(::GetFileAttributesW(Wide(L"\u904B").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_NE(::CreateDirectoryA((PathTo(kYun) + "\\" + kCheng).c_str(), nullptr), FALSE);
  EXPECT_NE(::GetFileAttributesW(Wide(L"\u904B\\\u8AA0").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_NE(::RemoveDirectoryA((PathTo(kYun) + "\\" + kCheng).c_str()), FALSE);
  EXPECT_EQ(::GetFileAttributesW(Wide(L"\u904B\\\u8AA0").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DoubleBytePathContract, AFileIsMadeFoundAndDeletedUnderItsWideName) {
  const std::string path = PathTo(std::string("a") + kYun);
  { const common::UniqueFile file(::_fsopen(path.c_str(), "w", _SH_DENYNO)); }
  EXPECT_NE(::GetFileAttributesW(Wide(L"a\u904B").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(::_access(path.c_str(), 0), 0);
  EXPECT_NE(::PathFileExistsA(path.c_str()), FALSE);
  EXPECT_NE(::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
  EXPECT_NE(::GetFileAttributesW(Wide(L"a\u904B").c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
  EXPECT_NE(::SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
  EXPECT_NE(::DeleteFileA(path.c_str()), FALSE);
  EXPECT_EQ(::GetFileAttributesW(Wide(L"a\u904B").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DoubleBytePathContract, TheFirstByteIsNoNameOfItsOwn) {
  // Taken for bytes, the path would lead into a folder of this name.
  EXPECT_EQ(::_access(PathTo("\xDF\\missing").c_str(), 0), -1);
  EXPECT_EQ(::_mkdir(PathTo("\xDF\\missing").c_str()), 0);
  EXPECT_NE(::GetFileAttributesW(Wide(L"\u904Bmissing").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DoubleBytePathContract, ADefaultCharacterIsNoName) {
  EXPECT_EQ(::SetFileAttributesA(PathTo("Gr??e").c_str(), FILE_ATTRIBUTE_NORMAL), FALSE);
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_NAME});
}

TEST_F(DoubleBytePathContract, PathRemoveFileSpecStepsOverPairs) {
  const struct {
    std::string path;
    std::string rest;
  } cases[] = {
      {"C:\\\xDF\\\\a.exe", "C:\\\xDF\\"},
      {"C:\\\xDF\\", "C:\\"},
      {"C:\\\xDF\\\\\xD5\\", "C:\\\xDF\\"},
      {"C:\\a\xDF\\z\\b", "C:\\a\xDF\\z"},
  };
  for (const auto& [path, rest] : cases) {
    std::string buffer = path;
    EXPECT_NE(::PathRemoveFileSpecA(buffer.data()), FALSE);
    EXPECT_STREQ(buffer.c_str(), rest.c_str());
  }
}

}  // namespace
}  // namespace tests
