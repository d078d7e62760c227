#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

class SimulatedFiles : public testing::Test {
 protected:
  DWORD AttributesError(const std::string& path) {
    DWORD attributes = 0;
    return files_.Attributes(path, &attributes);
  }
  DWORD OpenError(const std::string& path, const OpenMode& mode = {.read = true}) {
    std::shared_ptr<OpenFile> file;
    return files_.Open(path, mode, &file);
  }
  std::shared_ptr<OpenFile> Open(const std::string& path, const OpenMode& mode = {.read = true}) {
    std::shared_ptr<OpenFile> file;
    EXPECT_EQ(files_.Open(path, mode, &file), DWORD{ERROR_SUCCESS});
    return file;
  }

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(SimulatedFiles, FindsNamesInEitherCaseAndKeepsTheirs) {
  files_.Write("C:\\Data\\ReadMe.TXT", "x");
  EXPECT_EQ(files_.Read("c:\\dATA\\readme.txt"), "x");
  EXPECT_EQ(files_.List("C:\\data"), std::vector<std::string>{"ReadMe.TXT"});
}

TEST_F(SimulatedFiles, TellsAMissingFileFromAMissingFolder) {
  EXPECT_EQ(AttributesError("C:\\missing.txt"), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(AttributesError("C:\\missing\\a.txt"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, TakesAFileInTheMiddleOfAPathForAMissingFolder) {
  files_.Write("C:\\a", "x");
  EXPECT_EQ(AttributesError("C:\\a\\b"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, HasNoPathOnALetterWithoutVolume) {
  EXPECT_EQ(AttributesError("Q:\\"), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(AttributesError("{:\\"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, HasNoEmptyPath) {
  EXPECT_EQ(AttributesError(""), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, RefusesNamesOfReservedCharacters) {
  EXPECT_EQ(AttributesError("C:\\a?b"), DWORD{ERROR_INVALID_NAME});
  EXPECT_EQ(AttributesError("C:\\missing\\a|b"), DWORD{ERROR_INVALID_NAME});
}

TEST_F(SimulatedFiles, FindsPathsOf259CharactersAndNoneBeyond) {
  const std::string longest = "C:\\" + std::string(200, 'a') + "\\" + std::string(55, 'b');
  files_.Write(longest, "x");
  EXPECT_EQ(AttributesError(longest), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError(longest + "b"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, TakesABackslashBehindAFolderButNotBehindAFile) {
  files_.Write("C:\\folder\\a.txt", "x");
  EXPECT_EQ(AttributesError("C:\\folder\\"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(AttributesError("C:\\folder\\a.txt\\"), DWORD{ERROR_INVALID_NAME});
}

TEST_F(SimulatedFiles, TellsFoldersFromFiles) {
  DWORD attributes = 0;
  files_.Attributes("C:\\", &attributes);
  EXPECT_EQ(attributes, DWORD{FILE_ATTRIBUTE_DIRECTORY});
  files_.Write("C:\\a", "x");
  files_.Attributes("C:\\a", &attributes);
  EXPECT_EQ(attributes, DWORD{FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(SimulatedFiles, StartsRelativePathsInTheSystemDirectory) {
  files_.Write("C:\\Windows\\system32\\a.txt", "x");
  EXPECT_EQ(AttributesError("a.txt"), DWORD{ERROR_SUCCESS});
  files_.SetCurrentFolder("C:\\Windows");
  EXPECT_EQ(AttributesError("a.txt"), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(SimulatedFiles, MakesOneLevelOfFolders) {
  EXPECT_EQ(files_.MakeDirectory("C:\\a\\b"), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_EQ(files_.MakeDirectory("C:\\a\\"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.MakeDirectory("C:\\a\\b"), DWORD{ERROR_SUCCESS});
  EXPECT_TRUE(files_.Exists("C:\\a\\b"));
}

TEST_F(SimulatedFiles, MakesNoFolderOverWhatIsThere) {
  files_.Write("C:\\a", "x");
  EXPECT_EQ(files_.MakeDirectory("C:\\A"), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(files_.MakeDirectory("C:\\windows"), DWORD{ERROR_ALREADY_EXISTS});
  EXPECT_EQ(files_.MakeDirectory("C:\\"), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedFiles, LeavesRoomForAFileNameBelowANewFolder) {
  EXPECT_EQ(files_.MakeDirectory("C:\\" + std::string(244, 'a')), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.MakeDirectory("C:\\" + std::string(245, 'a')),
            DWORD{ERROR_FILENAME_EXCED_RANGE});
}

TEST_F(SimulatedFiles, DeletesAFileAndFreesItsBytes) {
  files_.Write("C:\\a", "12345");
  const uint64_t before = files_.VolumeAt('C')->free;
  EXPECT_EQ(files_.Delete("C:\\a"), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(files_.Exists("C:\\a"));
  EXPECT_EQ(files_.VolumeAt('C')->free, before + 5);
}

TEST_F(SimulatedFiles, DeletesNoFolder) {
  EXPECT_EQ(files_.Delete("C:\\Windows"), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedFiles, RemoveAnEmptyFolder) {
  files_.MakeDirectories("C:\\a");
  EXPECT_EQ(files_.RemoveDirectory("C:\\a\\"), DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(files_.Exists("C:\\a"));
}

TEST_F(SimulatedFiles, RemoveNoFolderThatIsNotEmptyOrReadOnly) {
  files_.Write("C:\\a\\b", "x");
  EXPECT_EQ(files_.RemoveDirectory("C:\\a"), DWORD{ERROR_DIR_NOT_EMPTY});
  files_.MakeDirectories("C:\\c");
  files_.SetAttributes("C:\\c", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(files_.RemoveDirectory("C:\\c"), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(files_.RemoveDirectory("C:\\"), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedFiles, RemoveNoFileAsAFolder) {
  files_.Write("C:\\a", "x");
  EXPECT_EQ(files_.RemoveDirectory("C:\\a"), DWORD{ERROR_DIRECTORY});
  EXPECT_EQ(files_.RemoveDirectory("C:\\missing"), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(SimulatedFiles, ChangeAttributesThatCanBeSet) {
  files_.Write("C:\\a", "x");
  DWORD attributes = 0;
  const auto set = [&](DWORD wanted) {
    EXPECT_EQ(files_.ChangeAttributes("C:\\a", wanted), DWORD{ERROR_SUCCESS});
    files_.Attributes("C:\\a", &attributes);
    return attributes;
  };
  EXPECT_EQ(set(FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN), 3u);
  EXPECT_EQ(set(0), DWORD{FILE_ATTRIBUTE_NORMAL});
  EXPECT_EQ(set(FILE_ATTRIBUTE_NORMAL), DWORD{FILE_ATTRIBUTE_NORMAL});
  EXPECT_EQ(set(0xFFFFFFFF), 0x3127u);  // the seven that Windows takes
}

TEST_F(SimulatedFiles, ChangeAttributesOfFoldersThatStayFolders) {
  files_.MakeDirectories("C:\\a");
  EXPECT_EQ(files_.ChangeAttributes("C:\\a", FILE_ATTRIBUTE_TEMPORARY),
            DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(files_.ChangeAttributes("C:\\a", FILE_ATTRIBUTE_HIDDEN), DWORD{ERROR_SUCCESS});
  DWORD attributes = 0;
  files_.Attributes("C:\\a", &attributes);
  EXPECT_EQ(attributes, DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN});
}

TEST_F(SimulatedFiles, DeletesNoReadOnlyFile) {
  files_.Write("C:\\a", "x");
  files_.SetAttributes("C:\\a", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(files_.Delete("C:\\a"), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedFiles, DeletesNoFileThatIsOpen) {
  files_.Write("C:\\a", "x");
  std::shared_ptr<OpenFile> file = Open("C:\\a");
  EXPECT_EQ(files_.Delete("C:\\a"), DWORD{ERROR_SHARING_VIOLATION});
  file.reset();
  EXPECT_EQ(files_.Delete("C:\\a"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedFiles, SharesReadingAndWriting) {
  files_.Write("C:\\a", "x");
  const auto reader = Open("C:\\a");
  EXPECT_EQ(OpenError("C:\\a", {.read = true, .write = true}), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedFiles, RefusesAFileThatItsHolderDoesNotShare) {
  files_.Write("C:\\a", "x");
  auto holder = Open("C:\\a", {.read = true, .alone = true});
  EXPECT_EQ(OpenError("C:\\a"), DWORD{ERROR_SHARING_VIOLATION});
  holder.reset();
  EXPECT_EQ(OpenError("C:\\a"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedFiles, GivesNobodyAloneWhatOthersHold) {
  files_.Write("C:\\a", "x");
  const auto holder = Open("C:\\a");
  EXPECT_EQ(OpenError("C:\\a", {.read = true, .alone = true}), DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(SimulatedFiles, OpensAReadOnlyFileForReadingOnly) {
  files_.Write("C:\\a", "x");
  files_.SetAttributes("C:\\a", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(OpenError("C:\\a"), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError("C:\\a", {.write = true}), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(OpenError("C:\\a", {.write = true, .creation = Creation::kCreateAlways}),
            DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(files_.Read("C:\\a"), "x");
}

TEST_F(SimulatedFiles, OpensNoFolder) {
  EXPECT_EQ(OpenError("C:\\Windows"), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(OpenError("C:\\Windows\\"), DWORD{ERROR_PATH_NOT_FOUND});
}

TEST_F(SimulatedFiles, MakesNoFileOfANameBeforeABackslash) {
  EXPECT_EQ(OpenError("C:\\new\\", {.write = true, .creation = Creation::kCreateAlways}),
            DWORD{ERROR_INVALID_NAME});
}

TEST_F(SimulatedFiles, FillsTheGapLeftByATruncationWithZeros) {
  const auto first = Open("C:\\a", {.write = true, .creation = Creation::kCreateAlways});
  size_t written = 0;
  first->Write("abc", &written);
  Open("C:\\a", {.write = true, .creation = Creation::kCreateAlways});
  first->Write("d", &written);
  EXPECT_EQ(files_.Read("C:\\a"), std::string("\0\0\0d", 4));
}

TEST_F(SimulatedFiles, WritesWhatFitsBeforeTheDiskIsFull) {
  const auto file = Open("C:\\a", {.write = true, .creation = Creation::kCreateAlways});
  files_.SetFreeSpace('C', 3);
  size_t written = 0;
  EXPECT_EQ(file->Write("12345", &written), DWORD{ERROR_DISK_FULL});
  EXPECT_EQ(written, 3u);
  EXPECT_EQ(files_.Read("C:\\a"), "123");
  EXPECT_EQ(files_.VolumeAt('C')->free, 0u);
}

TEST_F(SimulatedFiles, OverwritesOnAFullDisk) {
  files_.Write("C:\\a", "123");
  files_.SetFreeSpace('C', 0);
  const auto file = Open("C:\\a", {.write = true});
  size_t written = 0;
  EXPECT_EQ(file->Write("xyz", &written), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.Read("C:\\a"), "xyz");
}

TEST_F(SimulatedFiles, TruncatingGivesBytesBack) {
  files_.Write("C:\\a", "12345");
  files_.SetFreeSpace('C', 0);
  Open("C:\\a", {.write = true, .creation = Creation::kCreateAlways});
  EXPECT_EQ(files_.VolumeAt('C')->free, 5u);
}

TEST_F(SimulatedFiles, FollowsALetterAtOnceButKeepsOpenFilesOnTheirVolume) {
  const auto data = files_.AddVolume({});
  ASSERT_TRUE(files_.Mount('d', data));
  const auto file = Open("D:\\a", {.write = true, .creation = Creation::kCreateAlways});
  files_.Unmount('D');
  EXPECT_EQ(AttributesError("D:\\a"), DWORD{ERROR_PATH_NOT_FOUND});

  size_t written = 0;
  EXPECT_EQ(file->Write("x", &written), DWORD{ERROR_SUCCESS});
  ASSERT_TRUE(files_.Mount('E', data));
  EXPECT_EQ(files_.Read("E:\\a"), "x");
}

TEST_F(SimulatedFiles, GivesALetterToOneVolume) {
  EXPECT_FALSE(files_.MountEmpty('c'));
  EXPECT_FALSE(files_.MountEmpty('1'));
}

TEST_F(SimulatedFiles, KnowsTheLetterOfAVolumeAndTheNextFreeOne) {
  const auto volume = files_.AddVolume({});
  EXPECT_EQ(files_.LetterOf(*volume), std::nullopt);
  EXPECT_EQ(files_.FreeLetter(), 'D');
  files_.Mount('d', volume);
  EXPECT_EQ(files_.LetterOf(*volume), 'D');
  EXPECT_EQ(files_.FreeLetter(), 'E');
}

TEST_F(SimulatedFiles, ReadsAndWritesVolumesWithoutALetter) {
  const auto volume = files_.AddVolume({});
  files_.WriteOn(*volume, "a\\b.txt", "x");
  EXPECT_EQ(files_.ReadOn(*volume, "A\\B.txt"), "x");
  EXPECT_EQ(files_.ReadOn(*volume, "a"), std::nullopt);
}

TEST_F(SimulatedFiles, TellsTheDriveTypeOfRootsOnly) {
  Volume removable;
  removable.drive_type = DRIVE_REMOVABLE;
  files_.Mount('R', files_.AddVolume(removable));
  EXPECT_EQ(files_.DriveType("c:\\"), UINT{DRIVE_FIXED});
  EXPECT_EQ(files_.DriveType("R:"), UINT{DRIVE_REMOVABLE});
  EXPECT_EQ(files_.DriveType("C:\\Windows"), UINT{DRIVE_NO_ROOT_DIR});
  EXPECT_EQ(files_.DriveType("{:\\"), UINT{DRIVE_NO_ROOT_DIR});
}

TEST_F(SimulatedFiles, TellTheirWatcherWhatIsWritten) {
  std::string told;
  files_.Watch([&told](const std::string& path, std::string_view bytes) {
    told += path + ": " + std::string(bytes) + ";";
  });
  const auto file = Open("C:\\a", {.write = true, .creation = Creation::kCreateAlways});
  size_t written = 0;
  file->Write("one", &written);
  file->Write("two", &written);
  EXPECT_EQ(told, "C:\\a: one;C:\\a: two;");
}

TEST_F(SimulatedFiles, RemovesAFolderWithAllBelowIt) {
  files_.Write("C:\\a\\b\\c", "x");
  files_.Remove("C:\\a");
  EXPECT_FALSE(files_.Exists("C:\\a"));
}

TEST(SimulatedFilesDeathTest, AreNotWrittenWhereNoVolumeIs) {
  Server server;
  EXPECT_DEATH(server.files().Write("Q:\\a", "x"), "no volume is mounted");
}

}  // namespace
}  // namespace simulator
