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
            "\"D:\\b\\f; ü.txt\",33,\"O:SYG:SYD:PAI(D;;FA;;;WD)\"\r\n"
            "\"D:\\b\\j\",1040,\"O:SYG:SYD:AI(A;OICIID;FA;;;BA)\"\r\n");
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
