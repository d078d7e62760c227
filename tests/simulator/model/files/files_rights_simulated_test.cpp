// Who may do what on the simulated disk. The program runs as an elevated administrator.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"

namespace simulator {
namespace {

class SimulatedRights : public testing::Test {
 protected:
  SimulatedRights() { files_.Write("C:\\folder\\a.txt", "x"); }

  // Replaces the folder's and the file's list by one that grants the program just `rights`.
  void AllowOnFolder(const std::string& rights) { Allow("C:\\folder", rights); }
  void AllowOnFile(const std::string& rights) { Allow(kFile, rights); }
  void Allow(const std::string& path, const std::string& rights) {
    const std::string entry = rights.empty() ? "" : "(A;;" + rights + ";;;BA)";
    tests::Secure(server_, path, "O:SYG:SYD:PAI(A;;FA;;;SY)" + entry);
  }
  void Enable(const std::string& privilege) {
    ASSERT_TRUE(server_.security().SetEnabled(*Security::Lookup(privilege), true));
  }

  DWORD AttributesError() {
    DWORD attributes = 0;
    return files_.Attributes(kFile, &attributes);
  }
  DWORD OpenError(const std::string& path, const OpenMode& mode) {
    std::shared_ptr<OpenFile> file;
    return files_.Open(path, mode, &file);
  }
  DWORD HandleError(ACCESS_MASK access, bool backup_semantics) {
    std::shared_ptr<OpenNode> node;
    HandleMode mode;
    mode.access = access;
    mode.backup_semantics = backup_semantics;
    return files_.OpenHandle(kFile, mode, &node);
  }

  static constexpr char kFile[] = "C:\\folder\\a.txt";

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(SimulatedRights, AreAllAnAdministratorsOnAFreshVolume) {
  EXPECT_EQ(AttributesError(), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(kFile, {.read = true, .write = true}), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(HandleError(GENERIC_ALL, false), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.Delete(kFile), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, LetWhoReadsOpenForReadingOnly) {
  AllowOnFile("FR");
  EXPECT_EQ(OpenError(kFile, {.read = true}), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(kFile, {.write = true}), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(OpenError(kFile, {.read = true, .write = true}), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, LetWhoWritesOpenForWritingOnly) {
  AllowOnFile("FW");
  EXPECT_EQ(OpenError(kFile, {.write = true}), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(OpenError(kFile, {.read = true}), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, KeepTheContentsOfAFileThatIsRefused) {
  AllowOnFile("FR");
  EXPECT_EQ(OpenError(kFile, {.write = true, .creation = Creation::kCreateAlways}),
            DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(files_.Read(kFile), "x");
}

TEST_F(SimulatedRights, ToMakeFilesAndToMakeFoldersAreTwo) {
  const OpenMode create = {.write = true, .creation = Creation::kCreateAlways};
  AllowOnFolder("DC");  // FILE_ADD_FILE
  EXPECT_EQ(OpenError("C:\\folder\\new", create), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.MakeDirectory("C:\\folder\\below"), DWORD{ERROR_ACCESS_DENIED});
  AllowOnFolder("LC");  // FILE_ADD_SUBDIRECTORY
  EXPECT_EQ(OpenError("C:\\folder\\newer", create), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(files_.MakeDirectory("C:\\folder\\below"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, DoNotMatterToWhatIsThereAlready) {
  AllowOnFolder("");
  EXPECT_EQ(files_.MakeDirectory("C:\\folder\\a.txt"), DWORD{ERROR_ALREADY_EXISTS});
}

TEST_F(SimulatedRights, ToDeleteComeFromTheFile) {
  AllowOnFolder("");
  AllowOnFile("FR");
  EXPECT_EQ(files_.Delete(kFile), DWORD{ERROR_ACCESS_DENIED});
  AllowOnFile("SD");
  EXPECT_EQ(files_.Delete(kFile), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, ToDeleteComeFromTheFolder) {
  AllowOnFile("");
  AllowOnFolder("DT");  // FILE_DELETE_CHILD
  EXPECT_EQ(files_.Delete(kFile), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, ToDeleteHoldForFoldersAlike) {
  files_.MakeDirectories("C:\\folder\\empty");
  AllowOnFolder("");
  Allow("C:\\folder\\empty", "FR");
  EXPECT_EQ(files_.RemoveDirectory("C:\\folder\\empty"), DWORD{ERROR_ACCESS_DENIED});
  Allow("C:\\folder\\empty", "SD");
  EXPECT_EQ(files_.RemoveDirectory("C:\\folder\\empty"), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, ToReadAttributesComeFromTheFileOrTheFolder) {
  AllowOnFolder("");
  AllowOnFile("");
  EXPECT_EQ(AttributesError(), DWORD{ERROR_ACCESS_DENIED});
  AllowOnFile("LO");  // FILE_READ_ATTRIBUTES
  EXPECT_EQ(AttributesError(), DWORD{ERROR_SUCCESS});
  AllowOnFile("");
  AllowOnFolder("CC");  // FILE_LIST_DIRECTORY
  EXPECT_EQ(AttributesError(), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, ToChangeAttributesComeFromTheFile) {
  AllowOnFile("FR");
  EXPECT_EQ(files_.ChangeAttributes(kFile, FILE_ATTRIBUTE_HIDDEN), DWORD{ERROR_ACCESS_DENIED});
  AllowOnFile("CR");  // FILE_WRITE_ATTRIBUTES
  EXPECT_EQ(files_.ChangeAttributes(kFile, FILE_ATTRIBUTE_HIDDEN), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, OnTheWayToAFileAreNotAsked) {
  AllowOnFolder("");
  EXPECT_EQ(OpenError(kFile, {.read = true}), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, AreDeniedBeforeTheyAreGranted) {
  tests::Secure(server_, kFile, "O:BAG:SYD:PAI(D;;FA;;;WD)(A;;FA;;;BA)");
  EXPECT_EQ(OpenError(kFile, {.read = true}), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, ToReadComeFromSeBackupPrivilegeForBackupsOnly) {
  AllowOnFolder("");
  AllowOnFile("");
  EXPECT_EQ(HandleError(GENERIC_READ, true), DWORD{ERROR_ACCESS_DENIED});
  Enable(SE_BACKUP_NAME);
  EXPECT_EQ(HandleError(GENERIC_READ, true), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(HandleError(GENERIC_READ, false), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(HandleError(GENERIC_WRITE, true), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(OpenError(kFile, {.read = true}), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, ToWriteComeFromSeRestorePrivilegeForBackupsOnly) {
  AllowOnFolder("CC");  // attributes are then read in any case
  AllowOnFile("");
  EXPECT_EQ(HandleError(GENERIC_WRITE, true), DWORD{ERROR_ACCESS_DENIED});
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(HandleError(GENERIC_WRITE, true), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(HandleError(WRITE_DAC | WRITE_OWNER | DELETE, true), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(HandleError(GENERIC_WRITE, false), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(HandleError(GENERIC_READ, true), DWORD{ERROR_ACCESS_DENIED});
  EXPECT_EQ(OpenError(kFile, {.write = true}), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, AddUpFromListAndPrivilege) {
  AllowOnFile("FR");
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(HandleError(GENERIC_READ | GENERIC_WRITE, true), DWORD{ERROR_SUCCESS});
}

TEST_F(SimulatedRights, OfARestoreServeToDeleteAndToMakeFolders) {
  AllowOnFolder("");
  AllowOnFile("");
  Enable(SE_RESTORE_NAME);
  EXPECT_EQ(files_.ChangeAttributes(kFile, FILE_ATTRIBUTE_HIDDEN), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.Delete(kFile), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(files_.MakeDirectory("C:\\folder\\new"), DWORD{ERROR_SUCCESS});
  // The runtime opens files for no such purpose.
  EXPECT_EQ(OpenError(kFile, {.write = true, .creation = Creation::kCreateAlways}),
            DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, ToTakeOwnershipComeFromThatPrivilege) {
  AllowOnFile("0x100080");  // SYNCHRONIZE and FILE_READ_ATTRIBUTES, which CreateFile adds
  EXPECT_EQ(HandleError(WRITE_OWNER, false), DWORD{ERROR_ACCESS_DENIED});
  Enable(SE_TAKE_OWNERSHIP_NAME);
  EXPECT_EQ(HandleError(WRITE_OWNER, false), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(HandleError(WRITE_DAC, false), DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(SimulatedRights, AreNotKeptByFat) {
  Volume fat;
  fat.file_system = "FAT32";
  files_.Mount('F', files_.AddVolume(fat));
  files_.Write("F:\\a.txt", "x");
  Allow("F:\\a.txt", "");
  EXPECT_EQ(OpenError("F:\\a.txt", {.read = true}), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(tests::SddlOf(server_, "F:\\a.txt"), "none");
}

TEST_F(SimulatedRights, AreNotAskedOfTests) {
  AllowOnFolder("");
  AllowOnFile("");
  EXPECT_EQ(files_.Read(kFile), "x");
  files_.Write("C:\\folder\\b.txt", "y");
  EXPECT_TRUE(files_.Exists("C:\\folder\\b.txt"));
}

}  // namespace
}  // namespace simulator
