#include <optional>
#include <string>
#include <vector>

#include "rehearsal/description/prepare_folder.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/files/files.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

class PrepareFolderTest : public tests::ScenarioTest {
 protected:
  // What was the volume D is now E.
  void Make(const std::string& keys) { Build(Read(WithVolume(keys)), server_); }

  std::optional<std::string> FileOf(const std::string& name) {
    return server_.files().Read("E:\\vantoro_prepare\\" + name);
  }
  std::vector<std::string> Names() { return server_.files().List("E:\\vantoro_prepare"); }

  Server server_;
};

constexpr char kSource[] = R"json("source": {
    "sddl": "O:BAG:SYD:PAI(A;OICI;FA;;;BA)S:AI(AU;SA;FA;;;WD)",
               "folders" : [ {"path" : "b", "attributes" : "H", "sddl" : "O:SYG:SYD:AI"} ],
               "files"
    : [ {"path" : "b\\f; \u00fc.txt", "attributes" : "RA", "sddl" : "O:SYG:SYD:PAI(D;;FA;;;WD)"} ],
               "junctions" : [
                 {"path" : "b\\j", "target" : "D:\\b", "sddl" : "O:SYG:SYD:AI"},
                 {"path" : "a", "target" : "X:\\", "sddl" : "O:SYG:SYD:AI"}
               ]
})json";

TEST_F(PrepareFolderTest, ListsFoldersBeforeWhatIsInThemUnderTheLetterOfTheSource) {
  Make(kSource);
  EXPECT_EQ(FileOf("aclbackup_d.dat"),
            "\"D:\\\",16,\"O:BAG:SYD:PAI(A;OICI;FA;;;BA)S:AI(AU;SA;FA;;;WD)\"\r\n"
            "\"D:\\a\",1040,\"O:SYG:SYD:AI(A;OICIID;FA;;;BA)\"\r\n"
            "\"D:\\b\",18,\"O:SYG:SYD:AI(A;OICIID;FA;;;BA)\"\r\n"
            "\"D:\\b\\f; \xFC.txt\",33,\"O:SYG:SYD:PAI(D;;FA;;;WD)\"\r\n"
            "\"D:\\b\\j\",1040,\"O:SYG:SYD:AI(A;OICIID;FA;;;BA)\"\r\n");
}

TEST_F(PrepareFolderTest, IsInTheCodePageOfTheLanguage) {
  std::string json = WithVolume(kSource + std::string(R"(, "backup_info": ["D\u00fc\u4e2d"])"));
  json.insert(1, R"("windows": {"language": 2052}, )");
  Build(Read(json), server_);
  EXPECT_EQ(server_.system().ansi_code_page, 936u);
  EXPECT_EQ(server_.system().oem_code_page, 936u);
  EXPECT_NE(FileOf("aclbackup_d.dat")->find("\"D:\\b\\f; \xA8\xB9.txt\",33,"), std::string::npos);
  EXPECT_EQ(FileOf("backup_info"), "D\xA8\xB9\xD6\xD0\r\n");
}

TEST_F(PrepareFolderTest, HasAQuestionMarkForWhatTheCodePageLacks) {
  Make(R"("source": {"files": [{"path": "\u4e2d.txt"}],
                     "junctions": [{"path": "j", "target": "C:\\\u4e2d"}]})");
  EXPECT_NE(FileOf("aclbackup_d.dat")->find("\"D:\\?.txt\",32,"), std::string::npos);
  EXPECT_EQ(FileOf("juncbackup_d.dat"), "D:\\j;C:\\?\r\n");
}

TEST_F(PrepareFolderTest, ListsJunctions) {
  Make(kSource);
  EXPECT_EQ(FileOf("juncbackup_d.dat"), "D:\\a;X:\\\r\nD:\\b\\j;D:\\b\r\n");
}

TEST_F(PrepareFolderTest, RecordsTheLetterAndTheNumberOfEntries) {
  Make(kSource);
  EXPECT_EQ(FileOf("backup_info"), "D\r\n\r\n\r\n5\r\n");
}

TEST_F(PrepareFolderTest, LetsTheScenarioSayWhatIsRecorded) {
  Make(kSource + std::string(R"(, "backup_info": ["H", "", "", "x"])"));
  EXPECT_EQ(FileOf("backup_info"), "H\r\n\r\n\r\nx\r\n");
  EXPECT_TRUE(FileOf("aclbackup_d.dat"));
}

TEST_F(PrepareFolderTest, HoldsTheTwoListsBesideWhatIsRecorded) {
  Make(kSource);
  EXPECT_EQ(Names(),
            (std::vector<std::string>{"aclbackup_d.dat", "backup_info", "juncbackup_d.dat"}));
}

TEST_F(PrepareFolderTest, LacksTheListOfJunctions) {
  Make(kSource + std::string(R"(, "lost": ["junction_list"])"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"aclbackup_d.dat", "backup_info"}));
}

TEST_F(PrepareFolderTest, LacksTheAclList) {
  Make(kSource + std::string(R"(, "lost": ["acl_list"])"));
  EXPECT_EQ(Names(), (std::vector<std::string>{"backup_info", "juncbackup_d.dat"}));
}

TEST_F(PrepareFolderTest, IsLostAsAWhole) {
  Make(kSource + std::string(R"(, "backup_info": ["D"], "lost": ["prepare_folder"])"));
  EXPECT_FALSE(server_.files().Exists("E:\\vantoro_prepare"));
}

TEST_F(PrepareFolderTest, HidesWhatIsUnreadableFromAllButTheSystem) {
  Make(kSource + std::string(R"(, "unreadable": ["junction_list", "acl_list"])"));
  for (const char* const name : {"juncbackup_d.dat", "aclbackup_d.dat"}) {
    std::shared_ptr<OpenFile> file;
    EXPECT_EQ(server_.file_system().Open(std::string("E:\\vantoro_prepare\\") + name,
                                         OpenMode{.read = true}, &file),
              DWORD{ERROR_ACCESS_DENIED})
        << name;
  }
  std::shared_ptr<OpenFile> file;
  EXPECT_EQ(
      server_.file_system().Open("E:\\vantoro_prepare\\backup_info", OpenMode{.read = true}, &file),
      DWORD{ERROR_SUCCESS});
}

}  // namespace
}  // namespace simulator
