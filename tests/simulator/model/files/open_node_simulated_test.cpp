// Handles to files and folders: what opens, and who may hold what at the same time.
#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/test_names.h"

namespace simulator {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

class HandlesToFiles : public testing::Test {
 protected:
  HandlesToFiles() { files_.Write("C:\\a.txt", "x"); }

  DWORD Open(const std::string& path, ACCESS_MASK access, DWORD share,
             std::shared_ptr<OpenNode>* node) {
    HandleMode mode;
    mode.access = access;
    mode.share = share;
    return files_.OpenHandle(path, mode, node);
  }
  DWORD OpenError(const std::string& path, ACCESS_MASK access, DWORD share) {
    std::shared_ptr<OpenNode> node;
    return Open(path, access, share, &node);
  }

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(HandlesToFiles, TellAMissingFileFromAMissingFolder) {
  EXPECT_EQ(OpenError("C:\\missing", GENERIC_READ, 0), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(OpenError("C:\\missing\\a", GENERIC_READ, 0), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(HandlesToFiles, OpenFoldersForBackupsOnly) {
  EXPECT_EQ(OpenError("C:\\Windows", GENERIC_READ, 0), DWORD{ERROR_ACCESS_DENIED});
  HandleMode mode;
  mode.access = GENERIC_READ;
  mode.backup_semantics = true;
  std::shared_ptr<OpenNode> folder;
  EXPECT_EQ(files_.OpenHandle("C:\\Windows", mode, &folder), DWORD{ERROR_SUCCESS});
}

TEST_F(HandlesToFiles, OpenNoFileBeforeABackslash) {
  EXPECT_EQ(OpenError("C:\\a.txt\\", GENERIC_READ, 0), DWORD{ERROR_INVALID_NAME});
}

TEST_F(HandlesToFiles, OpenReadOnlyFilesForReading) {
  files_.SetAttributes("C:\\a.txt", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(OpenError("C:\\a.txt", GENERIC_READ, 0), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError("C:\\a.txt", GENERIC_WRITE, 0), DWORD{ERROR_ACCESS_DENIED});
}

struct Pair {
  const char* what;
  ACCESS_MASK first_access;
  DWORD first_share;
  ACCESS_MASK second_access;
  DWORD second_share;
  DWORD error;
};

std::ostream& operator<<(std::ostream& out, const Pair& test) { return out << test.what; }

class HandlesToOneFile : public HandlesToFiles, public testing::WithParamInterface<Pair> {};

TEST_P(HandlesToOneFile, ShareItAsBothAllow) {
  const Pair& pair = GetParam();
  std::shared_ptr<OpenNode> first;
  ASSERT_EQ(Open("C:\\a.txt", pair.first_access, pair.first_share, &first), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError("C:\\a.txt", pair.second_access, pair.second_share), pair.error) << pair.what;
  first.reset();
  EXPECT_EQ(OpenError("C:\\a.txt", pair.second_access, pair.second_share), DWORD{ERROR_SUCCESS});
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, HandlesToOneFile,
    testing::Values(
        Pair{"readers", GENERIC_READ, FILE_SHARE_READ, GENERIC_READ, FILE_SHARE_READ,
             ERROR_SUCCESS},
        Pair{"the first shares nothing", GENERIC_READ, 0, GENERIC_READ, kShareAll,
             ERROR_SHARING_VIOLATION},
        Pair{"the second shares nothing", GENERIC_READ, kShareAll, GENERIC_READ, 0,
             ERROR_SHARING_VIOLATION},
        Pair{"a writer among readers", GENERIC_READ, FILE_SHARE_READ, GENERIC_WRITE, kShareAll,
             ERROR_SHARING_VIOLATION},
        Pair{"a reader who shares no writing", GENERIC_WRITE, kShareAll, GENERIC_READ,
             FILE_SHARE_READ, ERROR_SHARING_VIOLATION},
        Pair{"one who deletes", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, DELETE, kShareAll,
             ERROR_SHARING_VIOLATION},
        Pair{"one who deletes and may", GENERIC_READ, kShareAll, DELETE, kShareAll, ERROR_SUCCESS},
        Pair{"one who looks at attributes only", GENERIC_READ, 0, FILE_READ_ATTRIBUTES, 0,
             ERROR_SUCCESS},
        Pair{"one who changes rights only", GENERIC_READ, 0, WRITE_DAC, 0, ERROR_SUCCESS}),
    tests::NamedAsPrinted());

TEST_F(HandlesToFiles, CountBesideTheRuntimesStreams) {
  std::shared_ptr<OpenFile> stream;
  ASSERT_EQ(files_.Open("C:\\a.txt", {.read = true}, &stream), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError("C:\\a.txt", GENERIC_READ, 0), DWORD{ERROR_SHARING_VIOLATION});
  EXPECT_EQ(OpenError("C:\\a.txt", GENERIC_READ, FILE_SHARE_READ), DWORD{ERROR_SUCCESS});
}

TEST_F(HandlesToFiles, KeepWhatTheyDoNotLetOthersDelete) {
  std::shared_ptr<OpenNode> holder;
  ASSERT_EQ(Open("C:\\a.txt", GENERIC_READ, FILE_SHARE_READ, &holder), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.Delete("C:\\a.txt"), DWORD{ERROR_SHARING_VIOLATION});
  holder.reset();
  EXPECT_EQ(files_.Delete("C:\\a.txt"), DWORD{ERROR_SUCCESS});
}

TEST_F(HandlesToFiles, KeepAFolderThatIsToBeRemoved) {
  files_.MakeDirectories("C:\\folder");
  HandleMode mode;
  mode.access = GENERIC_READ;
  mode.backup_semantics = true;
  std::shared_ptr<OpenNode> holder;
  ASSERT_EQ(files_.OpenHandle("C:\\folder", mode, &holder), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.RemoveDirectory("C:\\folder"), DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(HandlesToFiles, OutliveTheServersFiles) {
  std::shared_ptr<OpenNode> node;
  {
    const Security security;
    FileSystem files(security);
    files.MountEmpty('C');
    files.Write("C:\\a", "x");
    ASSERT_EQ(files.OpenHandle("C:\\a",
                               HandleMode{.access = GENERIC_READ,
                                          .share = 0,
                                          .backup_semantics = false,
                                          .open_reparse_point = false},
                               &node),
              DWORD{ERROR_SUCCESS});
  }
  EXPECT_EQ(node->Held().contents().bytes, "x");
}

}  // namespace
}  // namespace simulator
