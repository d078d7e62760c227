// Junctions on the simulated disk: where paths lead, and what acts on a junction itself.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "simulator/model/files/files.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

class SimulatedJunctions : public testing::Test {
 protected:
  SimulatedJunctions() {
    files_.MountEmpty('D');
    files_.Write("D:\\Data\\a.txt", "x");
  }

  DWORD AttributesError(const std::string& path) {
    DWORD attributes = 0;
    return files_.Attributes(path, &attributes);
  }
  DWORD AttributesOf(const std::string& path) {
    DWORD attributes = 0;
    EXPECT_EQ(files_.Attributes(path, &attributes), DWORD{ERROR_SUCCESS}) << path;
    return attributes;
  }
  DWORD OpenError(const std::string& path, const OpenMode& mode = {.read = true}) {
    std::shared_ptr<OpenFile> file;
    return files_.Open(path, mode, &file);
  }
  std::shared_ptr<OpenNode> OpenFolder(const std::string& path, bool open_reparse_point) {
    std::shared_ptr<OpenNode> node;
    HandleMode mode;
    mode.access = GENERIC_READ | GENERIC_WRITE;
    mode.backup_semantics = true;
    mode.open_reparse_point = open_reparse_point;
    EXPECT_EQ(files_.OpenHandle(path, mode, &node), DWORD{ERROR_SUCCESS}) << path;
    return node;
  }

  static constexpr DWORD kJunction = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(SimulatedJunctions, LeadToAnotherVolume) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(files_.Read("C:\\Link\\a.txt"), "x");
  EXPECT_EQ(OpenError("C:\\link\\A.TXT"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedJunctions, LeadOnFromOneToTheNext) {
  files_.MakeJunction("C:\\First", "C:\\Second\\Data");
  files_.MakeJunction("C:\\Second", "D:\\");
  EXPECT_EQ(files_.Read("C:\\First\\a.txt"), "x");
}

TEST_F(SimulatedJunctions, TakeWhatIsMadeBelowThemToTheirTarget) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(files_.MakeDirectory("C:\\Link\\new"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError("C:\\Link\\b.txt", {.write = true, .creation = Creation::kCreateAlways}),
            DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.List("D:\\Data"), (std::vector<std::string>{"a.txt", "b.txt", "new"}));
  EXPECT_EQ(files_.Delete("C:\\Link\\a.txt"), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(files_.Exists("D:\\Data\\a.txt"));
}

TEST_F(SimulatedJunctions, AreResolvedAfterDots) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  files_.Write("C:\\a.txt", "of C");
  EXPECT_EQ(files_.Read("C:\\Link\\..\\a.txt"), "of C");
}

TEST_F(SimulatedJunctions, FollowALetterThatMoves) {
  files_.MakeJunction("C:\\Link", "E:\\Data");
  EXPECT_EQ(AttributesError("C:\\Link\\a.txt"), DWORD{ERROR_PATH_NOT_FOUND});
  const auto volume = files_.VolumeAt('D');
  files_.Unmount('D');
  files_.Mount('E', volume);
  EXPECT_EQ(AttributesError("C:\\Link\\a.txt"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedJunctions, LeadNowhereWhenTheTargetIsGone) {
  files_.MakeJunction("C:\\Link", "D:\\Missing");
  EXPECT_EQ(AttributesError("C:\\Link\\a.txt"), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(AttributesOf("C:\\Link"), kJunction);
}

TEST_F(SimulatedJunctions, DoNotReadTargetsWithoutThePrefix) {
  files_.MakeDirectories("C:\\Link");
  const auto link = OpenFolder("C:\\Link", true);
  // The substitute name "\?D", which the prefix "\??\" does not begin.
  std::string buffer = JunctionBuffer("D:\\Data");
  buffer[16 + 4] = 'D';
  ASSERT_EQ(files_.SetReparsePoint(*link, buffer), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError("C:\\Link\\a.txt"), DWORD{ERROR_INVALID_REPARSE_DATA});
}

TEST_F(SimulatedJunctions, AreFollowedUpTo63Times) {
  const auto name = [](int i) { return "C:\\" + std::to_string(i); };
  files_.MakeJunction(name(1), "D:\\Data");
  for (int i = 2; i <= 64; ++i) files_.MakeJunction(name(i), name(i - 1));
  EXPECT_EQ(AttributesError(name(63) + "\\a.txt"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError(name(64) + "\\a.txt"), DWORD{ERROR_CANT_RESOLVE_FILENAME});
}

TEST_F(SimulatedJunctions, MayLeadInACircle) {
  files_.MakeJunction("C:\\a", "C:\\b");
  files_.MakeJunction("C:\\b", "C:\\a");
  EXPECT_EQ(AttributesError("C:\\a\\x"), DWORD{ERROR_CANT_RESOLVE_FILENAME});
}

TEST_F(SimulatedJunctions, AreWhatAttributesTellOfAtTheEndOfAPath) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(AttributesOf("C:\\Link"), kJunction);
  EXPECT_EQ(AttributesOf("C:\\Link\\"), kJunction);
}

TEST_F(SimulatedJunctions, KeepTheirMarkWhenAttributesChange) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(files_.ChangeAttributes("C:\\Link", FILE_ATTRIBUTE_HIDDEN), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesOf("C:\\Link"), kJunction | FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(AttributesOf("D:\\Data"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
}

TEST_F(SimulatedJunctions, AreRemovedThemselvesWhateverTheirTargetHolds) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(files_.Delete("C:\\Link"), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(files_.RemoveDirectory("C:\\Link"), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(files_.Exists("C:\\Link"));
  EXPECT_TRUE(files_.Exists("D:\\Data\\a.txt"));
}

TEST_F(SimulatedJunctions, AreInTheWayOfANewFolder) {
  files_.MakeJunction("C:\\Link", "D:\\Missing");
  EXPECT_EQ(files_.MakeDirectory("C:\\Link"), DWORD{ERROR_ALREADY_EXISTS});
}

TEST_F(SimulatedJunctions, AreFollowedByWhoOpensThemUnlessHeAsksNotTo) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(OpenFolder("C:\\Link", false)->Held().name, "Data");
  EXPECT_EQ(OpenFolder("C:\\Link", true)->Held().name, "Link");
}

TEST_F(SimulatedJunctions, AreMadeOfEmptyFolders) {
  files_.MakeDirectories("C:\\Link");
  const auto link = OpenFolder("C:\\Link", true);
  EXPECT_EQ(files_.SetReparsePoint(*link, JunctionBuffer("D:\\Data")), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.JunctionTarget("C:\\Link"), "\\??\\D:\\Data");
  EXPECT_EQ(AttributesOf("C:\\Link"), kJunction);
}

TEST_F(SimulatedJunctions, AreTurnedToAnotherTarget) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  const auto link = OpenFolder("C:\\Link", true);
  EXPECT_EQ(files_.SetReparsePoint(*link, JunctionBuffer("D:\\")), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.JunctionTarget("C:\\Link"), "\\??\\D:\\");
}

TEST_F(SimulatedJunctions, AreNotMadeOfFoldersThatHoldSomething) {
  const auto folder = OpenFolder("D:\\Data", true);
  EXPECT_EQ(files_.SetReparsePoint(*folder, JunctionBuffer("C:\\")), DWORD{ERROR_DIR_NOT_EMPTY});
  EXPECT_EQ(files_.JunctionTarget("D:\\Data"), std::nullopt);
}

TEST_F(SimulatedJunctions, AreNotMadeOfRoots) {
  files_.MountEmpty('E');
  const auto root = OpenFolder("E:\\", true);
  EXPECT_EQ(files_.SetReparsePoint(*root, JunctionBuffer("C:\\")), DWORD{ERROR_DIR_NOT_EMPTY});
  EXPECT_EQ(AttributesOf("E:\\"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
}

TEST_F(SimulatedJunctions, AreNotMadeOfFiles) {
  const auto file = OpenFolder("D:\\Data\\a.txt", true);
  EXPECT_EQ(files_.SetReparsePoint(*file, JunctionBuffer("C:\\")), DWORD{ERROR_DIRECTORY});
}

TEST_F(SimulatedJunctions, DoNotReplaceReparsePointsOfAnotherKind) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  const auto link = OpenFolder("C:\\Link", true);
  link->Held().OwnContents().reparse_data[0] = '\x0C';  // a symbolic link's
  EXPECT_EQ(files_.SetReparsePoint(*link, JunctionBuffer("D:\\")),
            DWORD{ERROR_REPARSE_TAG_MISMATCH});
}

TEST_F(SimulatedJunctions, AreTheOnlyReparsePointsThatLeadAnywhere) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  OpenFolder("C:\\Link", true)->Held().OwnContents().reparse_data[0] = '\x0C';
  EXPECT_EQ(AttributesError("C:\\Link\\a.txt"), DWORD{ERROR_CANT_ACCESS_FILE});
}

TEST_F(SimulatedJunctions, AreMadeThroughHandlesThatMayWriteOnly) {
  files_.MakeDirectories("C:\\Link");
  std::shared_ptr<OpenNode> link;
  HandleMode mode;
  mode.access = GENERIC_READ;
  mode.backup_semantics = true;
  ASSERT_EQ(files_.OpenHandle("C:\\Link", mode, &link), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.SetReparsePoint(*link, JunctionBuffer("D:\\")), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedJunctions, AreNotKeptByFat) {
  Volume fat;
  fat.file_system = "FAT32";
  files_.Mount('F', files_.AddVolume(fat));
  files_.MakeDirectories("F:\\Link");
  const auto link = OpenFolder("F:\\Link", true);
  EXPECT_EQ(files_.SetReparsePoint(*link, JunctionBuffer("D:\\")), DWORD{ERROR_INVALID_FUNCTION});
}

TEST_F(SimulatedJunctions, HaveNoTargetWhereThereIsNone) {
  EXPECT_EQ(files_.JunctionTarget("D:\\Data"), std::nullopt);
  EXPECT_EQ(files_.JunctionTarget("D:\\missing"), std::nullopt);
}

TEST(SimulatedJunctionsDeathTest, TakeNothingThatATestPutsBelowThem) {
  Server server;
  server.files().MakeJunction("C:\\Link", "C:\\Windows");
  EXPECT_DEATH(server.files().Write("C:\\Link\\a", "x"), "below a junction");
}

TEST_F(SimulatedJunctions, AreFoundByVerbatimPaths) {
  files_.MakeJunction("C:\\Link", "D:\\Data");
  EXPECT_EQ(AttributesError("\\\\?\\C:\\Link\\a.txt"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError("\\\\?\\C:\\Link\\.\\a.txt"), DWORD{ERROR_INVALID_NAME});
}

TEST(VerbatimPaths, AreNotBoundedBy260Characters) {
  Server server;
  const std::string folder = "\\\\?\\C:\\" + std::string(250, 'a');
  EXPECT_EQ(server.file_system().MakeDirectory(folder), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(server.file_system().MakeDirectory(folder + "\\" + std::string(250, 'b')),
            DWORD{ERROR_SUCCESS});
}

TEST(VerbatimPaths, KeepFinalDotsOfNames) {
  Server server;
  EXPECT_EQ(server.file_system().MakeDirectory("\\\\?\\C:\\a."), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(server.files().Exists("C:\\a."));
  EXPECT_TRUE(server.files().Exists("\\\\?\\C:\\a."));
}

}  // namespace
}  // namespace simulator
