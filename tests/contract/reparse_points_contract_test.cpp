// Handles to files and folders, and junctions made through them.
#include <windows.h>

#include <string>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr DWORD kBoth = GENERIC_READ | GENERIC_WRITE;
constexpr DWORD kJunction = FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS;

std::wstring Wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

void Append(size_t value, std::string* bytes) {
  *bytes += static_cast<char>(value & 0xFF);
  *bytes += static_cast<char>(value >> 8 & 0xFF);
}

// Of ASCII names, in UTF-16.
std::string JunctionBuffer(const std::string& target) {
  const std::string name = "\\??\\" + target;
  std::string buffer = {'\x03', '\0', '\0', '\xA0'};
  Append(8 + 2 * name.size() + 4, &buffer);
  Append(0, &buffer);
  Append(0, &buffer);
  Append(2 * name.size(), &buffer);
  Append(2 * name.size() + 2, &buffer);
  Append(0, &buffer);
  for (const char c : name) Append(static_cast<unsigned char>(c), &buffer);
  return buffer + std::string(4, '\0');
}

class ReparsePointContract : public HostTest {
 protected:
  ReparsePointContract()
      : file_(PathOf("file.txt")), folder_(PathOf("folder")), link_(PathOf("link")) {
    WriteBytes(file_, "text");
    MakeFolder(folder_);
    MakeFolder(link_);
  }
  // What leads elsewhere goes before the folder does.
  ~ReparsePointContract() override { ::RemoveDirectoryA(link_.c_str()); }

  static common::UniqueFileHandle Open(const std::string& path, DWORD access, DWORD flags) {
    return common::UniqueFileHandle(
        ::CreateFileW(Wide(path).c_str(), access, 0, nullptr, OPEN_EXISTING, flags, nullptr));
  }
  static DWORD OpenError(const std::string& path, DWORD access, DWORD flags) {
    return ErrorOf([&] { return static_cast<bool>(Open(path, access, flags)); });
  }
  static DWORD SetError(const std::string& path, std::string buffer, DWORD access = kBoth) {
    const common::UniqueFileHandle handle = Open(path, access, kJunction);
    EXPECT_TRUE(handle) << path;
    DWORD returned = 0;
    return ErrorOf([&] {
      return ::DeviceIoControl(handle.get(), FSCTL_SET_REPARSE_POINT, buffer.data(),
                               static_cast<DWORD>(buffer.size()), nullptr, 0, &returned, nullptr);
    });
  }

  const std::string file_;
  const std::string folder_;
  const std::string link_;
};

TEST_F(ReparsePointContract, CreateFileOpensAFile) {
  EXPECT_EQ(OpenError(file_, kBoth, 0), DWORD{ERROR_SUCCESS});
}

TEST_F(ReparsePointContract, CreateFileOpensAFolderForBackupsOnly) {
  EXPECT_EQ(OpenError(folder_, kBoth, kJunction), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(folder_, kBoth, FILE_FLAG_BACKUP_SEMANTICS), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(folder_, kBoth, 0), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(ReparsePointContract, CreateFileMissesFilesAndPaths) {
  EXPECT_EQ(OpenError(PathOf("missing"), kBoth, kJunction), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(OpenError(PathOf("missing\\a"), kBoth, kJunction), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(ReparsePointContract, CreateFileSharesNothingUnlessAsked) {
  const common::UniqueFileHandle holder = Open(file_, kBoth, 0);
  ASSERT_TRUE(holder);
  EXPECT_EQ(OpenError(file_, GENERIC_READ, 0), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(ErrorOf([&] { return ::DeleteFileA(file_.c_str()); }), DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(ReparsePointContract, CreateFileRefusesToWriteAReadOnlyFile) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kDescriptors;
  ASSERT_TRUE(::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(OpenError(file_, GENERIC_READ, 0), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(file_, kBoth, 0), DWORD{ERROR_ACCESS_DENIED});
  ASSERT_TRUE(::SetFileAttributesA(file_.c_str(), FILE_ATTRIBUTE_NORMAL));
}

TEST_F(ReparsePointContract, DeviceIoControlRefusesAHandleThatIsNone) {
  std::string buffer = JunctionBuffer(folder_);
  DWORD returned = 0;
  EXPECT_EQ(ErrorOf([&] {
              return ::DeviceIoControl(nullptr, FSCTL_SET_REPARSE_POINT, buffer.data(),
                                       static_cast<DWORD>(buffer.size()), nullptr, 0, &returned,
                                       nullptr);
            }),
            DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(ReparsePointContract, JunctionsLeadToTheirTarget) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  WriteBytes(folder_ + "\\a", "x");
  ASSERT_EQ(SetError(link_, JunctionBuffer(folder_)), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(ReadBytes(link_ + "\\a"), "x");
  EXPECT_EQ(::GetFileAttributesW(Wide(link_).c_str()),
            DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT});
}

TEST_F(ReparsePointContract, JunctionsToNowhereAreMade) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  ASSERT_EQ(SetError(link_, JunctionBuffer(PathOf("missing"))), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(ErrorOf([&] {
              return ::GetFileAttributesW(Wide(link_ + "\\a").c_str()) != INVALID_FILE_ATTRIBUTES;
            }),
            DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(ReparsePointContract, JunctionsAreRemovedWithoutTheirTarget) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  WriteBytes(folder_ + "\\a", "x");
  ASSERT_EQ(SetError(link_, JunctionBuffer(folder_)), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(::RemoveDirectoryA(link_.c_str()));
  EXPECT_EQ(ReadBytes(folder_ + "\\a"), "x");
}

TEST_F(ReparsePointContract, JunctionsReplaceEachOther) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  WriteBytes(folder_ + "\\a", "x");
  ASSERT_EQ(SetError(link_, JunctionBuffer(PathOf("missing"))), DWORD{ERROR_SUCCESS});
  ASSERT_EQ(SetError(link_, JunctionBuffer(folder_)), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(ReadBytes(link_ + "\\a"), "x");
}

TEST_F(ReparsePointContract, JunctionsAreMadeOfEmptyFoldersOnly) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  WriteBytes(folder_ + "\\a", "x");
  EXPECT_EQ(SetError(folder_, JunctionBuffer(link_)), DWORD{ERROR_DIR_NOT_EMPTY});
  EXPECT_EQ(SetError(file_, JunctionBuffer(link_)), DWORD{ERROR_DIRECTORY});
}

TEST_F(ReparsePointContract, JunctionsNeedAHandleThatMayWrite) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  EXPECT_EQ(SetError(link_, JunctionBuffer(folder_), GENERIC_READ), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(ReparsePointContract, BuffersOfWrongLengthAreRefused) {
  if (IsUnderWine()) GTEST_SKIP() << wine::kReparsePoints;
  const std::string buffer = JunctionBuffer(folder_);
  EXPECT_EQ(SetError(link_, buffer.substr(0, 7)), DWORD{ERROR_INVALID_REPARSE_DATA});
  EXPECT_EQ(SetError(link_, buffer.substr(0, buffer.size() - 2)),
            DWORD{ERROR_INVALID_REPARSE_DATA});
  EXPECT_EQ(SetError(link_, buffer + std::string(2, '\0')), DWORD{ERROR_INVALID_REPARSE_DATA});
  EXPECT_EQ(::GetFileAttributesW(Wide(link_).c_str()), DWORD{FILE_ATTRIBUTE_DIRECTORY});
}

}  // namespace
}  // namespace tests
