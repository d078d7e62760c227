#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"
#include "support/simulated_scenario_test.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using Names = std::vector<std::string>;

// The group of what the server's Administrator makes.
constexpr char kMadeBy[] = "O:BAG:S-1-5-21-1801674531-1417001333-682003330-513";
// Lets something inherit on each of the ways.
constexpr char kRoot[] =
    R"json("sddl": "O:SYG:SYD:PAI(A;OICI;FA;;;BA)(A;CIIO;GA;;;CO)(A;OI;FR;;;BU)")json";

class SourceTreeTest : public tests::ScenarioTest {
 protected:
  // What was the volume D is now E.
  void Make(const std::string& keys) { sources_ = Build(Read(WithVolume(keys)), server_); }

  const Node& At(const std::string& path) {
    const Node* const node = sources_.at(0).root->Find(path);
    if (node == nullptr) throw std::out_of_range(path);
    return *node;
  }
  std::string SddlAt(const std::string& path) {
    return SddlText(*At(path).security, server_.security().domains(),
                    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION |
                        DACL_SECURITY_INFORMATION | SACL_SECURITY_INFORMATION);
  }
  std::string CopySddl(const std::string& path) { return tests::SddlOf(server_, "E:\\" + path); }
  DWORD CopyAttributes(const std::string& path) {
    DWORD attributes = 0;
    return server_.file_system().Attributes("E:\\" + path, &attributes) == ERROR_SUCCESS
               ? attributes
               : 0;
  }
  Names NamesIn(const std::string& path) {
    Names names;
    for (const auto& child : At(path).contents().children) names.push_back(child->name);
    return names;
  }

  Server server_;
  std::vector<SourceVolume> sources_;
};

TEST_F(SourceTreeTest, InheritsWhatIsNotGiven) {
  Make(R"("source": {)" + std::string(kRoot) + R"(, "files": [{"path": "a\\b.txt"}]})");
  EXPECT_EQ(SddlAt(""), "O:SYG:SYD:PAI(A;OICI;FA;;;BA)(A;CIIO;GA;;;CO)(A;OI;FR;;;BU)");
  EXPECT_EQ(SddlAt("a"), std::string(kMadeBy) +
                             "D:AI(A;OICIID;FA;;;BA)(A;CIIOID;GA;;;CO)"
                             "(A;OIIOID;FR;;;BU)");
  EXPECT_EQ(SddlAt("a\\b.txt"), std::string(kMadeBy) + "D:AI(A;ID;FA;;;BA)(A;ID;FR;;;BU)");
}

TEST_F(SourceTreeTest, PutsGivenEntriesBeforeInheritedOnes) {
  Make(R"("source": {)" + std::string(kRoot) +
       R"json(, "files": [{"path": "f", "sddl": "D:AI(D;;FA;;;BG)(A;ID;FA;;;AN)"}]
})json");
  EXPECT_EQ(SddlAt("f"), std::string(kMadeBy) + "D:AI(D;;FA;;;BG)(A;ID;FA;;;BA)(A;ID;FR;;;BU)");
}

TEST_F(SourceTreeTest, InheritsEntriesOfTheCreatorForTheOwnerThatIsGiven) {
  Make(R"("source": {)" + std::string(kRoot) +
       R"(, "folders": [{"path": "a", "sddl": "O:AUG:SY"}]})");
  EXPECT_EQ(SddlAt("a"),
            "O:AUG:SYD:AI(A;OICIID;FA;;;BA)(A;ID;FA;;;AU)(A;CIIOID;GA;;;CO)(A;OIIOID;FR;;;BU)");
}

TEST_F(SourceTreeTest, KeepsAProtectedListAsItIs) {
  Make(R"("source": {)" + std::string(kRoot) +
       R"json(, "files": [{"path": "f", "sddl": "O:SYG:SYD:PAI(D;;FA;;;WD)"}]
})json");
  EXPECT_EQ(SddlAt("f"), "O:SYG:SYD:PAI(D;;FA;;;WD)");
}

TEST_F(SourceTreeTest, InheritsAuditing) {
  Make(R"("source": {)" + std::string(kRoot) + R"json(, "folders": [{"path": "a",
       "sddl": "O:SYG:SYD:PAI(A;OICI;FA;;;SY)S:AI(AU;OICISA;FA;;;WD)", "files": 1}]
})json");
  EXPECT_EQ(SddlAt("a\\File 00001.dat"),
            std::string(kMadeBy) + "D:AI(A;ID;FA;;;SY)S:AI(AU;IDSA;FA;;;WD)");
}

TEST_F(SourceTreeTest, SpreadsTheFilesOverAFolderAndThoseMadeInIt) {
  Make(R"("source": {"folders": [{"path": "a", "folders": 2, "files": 5}]})");
  EXPECT_EQ(NamesIn("a"), (Names{"File 00001.dat", "File 00004.dat", "Folder 001", "Folder 002"}));
  EXPECT_EQ(NamesIn("a\\Folder 001"), (Names{"File 00002.dat", "File 00005.dat"}));
  EXPECT_EQ(NamesIn("a\\Folder 002"), (Names{"File 00003.dat"}));
}

TEST_F(SourceTreeTest, LeavesNamesToThoseThatAreGiven) {
  Make(R"("source": {"folders": [{"path": "a", "folders": 1, "files": 1}],
       "files": [{"path": "a\\Folder 001"}, {"path": "a\\File 00001.dat"}]})");
  EXPECT_EQ(NamesIn("a"), (Names{"File 00001.dat", "File 00002.dat", "Folder 001", "Folder 002"}));
  EXPECT_FALSE(At("a\\Folder 001").IsFolder());
}

TEST_F(SourceTreeTest, ListsJunctionsWithWhatTheyLeadTo) {
  Make(R"("source": {"junctions": [{"path": "j", "target": "C:\\Users"}]})");
  EXPECT_EQ(JunctionTargetOf(At("j")), "C:\\Users");
  EXPECT_EQ(JunctionTargetOf(At("")), "");
}

constexpr char kSecured[] = R"json("source": {"sddl": "O:SYG:SYD:PAI(A;OICI;FA;;;BA)",
               "folders"
    : [ {"path" : "a", "attributes" : "H", "sddl" : "O:SYG:SYD:PAI(A;;FA;;;SY)"} ],
               "files" : [ {"path" : "a\\f", "attributes" : "RA"} ],
               "junctions" : [ {"path" : "j", "target" : "C:\\Users", "attributes" : "S"} ]
})json";

TEST_F(SourceTreeTest, CopiesFoldersAndFilesAlone) {
  Make(kSecured);
  EXPECT_EQ(CopySddl(""),
            "O:BAG:SYD:AI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)(A;OICIIO;GA;;;CO)(A;OICI;0x1200a9;;;BU)"
            "(A;CI;LC;;;BU)(A;CIIO;DC;;;BU)(A;;0x1200a9;;;WD)");
  EXPECT_EQ(CopySddl("a\\f"),
            std::string(kMadeBy) + "D:AI(A;ID;FA;;;BA)(A;ID;FA;;;SY)(A;ID;0x1200a9;;;BU)");
  EXPECT_EQ(CopyAttributes("a"), DWORD{FILE_ATTRIBUTE_DIRECTORY});
  EXPECT_EQ(CopyAttributes("a\\f"), DWORD{FILE_ATTRIBUTE_ARCHIVE});
  EXPECT_FALSE(server_.files().Exists("E:\\j"));
}

TEST_F(SourceTreeTest, CopiesWhatIsNotLost) {
  Make(kSecured + std::string(R"(, "lost": [])"));
  EXPECT_EQ(CopySddl(""), "O:SYG:SYD:PAI(A;OICI;FA;;;BA)");
  EXPECT_EQ(CopySddl("a"), "O:SYG:SYD:PAI(A;;FA;;;SY)");
  EXPECT_EQ(CopySddl("j"), std::string(kMadeBy) + "D:AI(A;OICIID;FA;;;BA)");
  EXPECT_EQ(CopyAttributes("a"), DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN});
  EXPECT_EQ(CopyAttributes("a\\f"), DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE});
  EXPECT_EQ(CopyAttributes("j"),
            DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_SYSTEM});
  EXPECT_EQ(server_.files().JunctionTarget("E:\\j"), "\\??\\C:\\Users");
}

TEST_F(SourceTreeTest, PutsInPlaceOfAJunctionWhatTheScenarioSays) {
  struct Case {
    std::string copy;
    DWORD attributes;
    std::optional<std::string> target;
  };
  const Case cases[] = {
      {"nothing", 0, std::nullopt},
      {"junction", FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT, "\\??\\C:\\Users"},
      {"file", FILE_ATTRIBUTE_ARCHIVE, std::nullopt},
      {"folder", FILE_ATTRIBUTE_DIRECTORY, std::nullopt},
  };
  std::string junctions;
  for (const Case& each : cases) {
    junctions += (junctions.empty() ? "" : ",") + (R"({"path": "a\\)" + each.copy) +
                 R"(", "target": "C:\\Users", "copy": ")" + each.copy + "\"}";
  }
  Make(R"("source": {"junctions": [)" + junctions + "]}");
  for (const Case& each : cases) {
    EXPECT_EQ(CopyAttributes("a\\" + each.copy), each.attributes) << each.copy;
    EXPECT_EQ(server_.files().JunctionTarget("E:\\a\\" + each.copy), each.target) << each.copy;
  }
}

TEST_F(SourceTreeTest, GivesTheCopyADescriptorOfItsOwn) {
  Make(R"json("source": {"files": [{"path": "f", "sddl": "D:PAI(A;;FA;;;SY)",
       "copy_sddl": "O:AUG:SYD:PAI(D;;FA;;;WD)"}]
})json");
  EXPECT_EQ(CopySddl("f"), "O:AUG:SYD:PAI(D;;FA;;;WD)");
  EXPECT_EQ(SddlAt("f"), std::string(kMadeBy) + "D:PAI(A;;FA;;;SY)");
}

TEST_F(SourceTreeTest, LeavesWhatTheServerHasAlready) {
  sources_ = Build(Read(R"({"title": "t", "disks": [{"size": "127 GB", "partitions": [
      {"size": "126 GB", "volume": {"letter": "C", "source_letter": "C",
       "source": {"files": [{"path": "windows\\SYSTEM32\\a.dll"}]}}}]}]})"),
                   server_);
  EXPECT_EQ(server_.files().List("C:\\Windows"), Names{"system32"});
  EXPECT_EQ(server_.files().List("C:\\Windows\\system32"), Names{"a.dll"});
  EXPECT_TRUE(server_.files().Exists(server_.system().program_path));
}

TEST_F(SourceTreeTest, NamesAFileInPlaceOfAFolderOfTheServer) {
  const Scenario scenario = Read(R"({"title": "t", "disks": [{"size": "127 GB", "partitions": [
      {"size": "126 GB", "volume": {"letter": "C", "source_letter": "C",
       "source": {"files": [{"path": "Windows"}]}}}]}]})");
  try {
    Build(scenario, server_);
    FAIL();
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(),
                 "Windows: expected to be a file or a folder, as what is there already");
  }
}

struct InTheWay {
  const char* name;
  const char* source;
  const char* error;
};

std::ostream& operator<<(std::ostream& out, const InTheWay& test) { return out << test.name; }

class SourceInTheWay : public SourceTreeTest, public testing::WithParamInterface<InTheWay> {};

TEST_P(SourceInTheWay, IsNamed) {
  const Scenario scenario = Read(R"({"title": "t", "disks": [{"size": "127 GB", "partitions": [
      {"size": "126 GB", "volume": {"letter": "C", "source_letter": "C", "lost": [],
       "source": {)" + std::string(GetParam().source) +
                                 "}}}]}]}");
  try {
    Build(scenario, server_);
    FAIL();
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(), GetParam().error);
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, SourceInTheWay,
    testing::Values(
        InTheWay{
            "FileInPlaceOfTheFolder", R"("files": [{"path": "vantoro_prepare"}])",
            "vantoro_prepare\\backup_info: expected to be a file below folders, all with valid "
            "names"},
        InTheWay{"FolderInPlaceOfAList",
                 R"("folders": [{"path": "vantoro_prepare\\juncbackup_c.dat"}])",
                 "vantoro_prepare\\juncbackup_c.dat: expected to be a file below folders, all with "
                 "valid names"},
        InTheWay{
            "JunctionInPlaceOfTheFolder",
            R"("junctions": [{"path": "vantoro_prepare", "target": "D:\\"}])",
            "vantoro_prepare\\backup_info: expected to be a file below folders, all with valid "
            "names"},
        InTheWay{"FolderInPlaceOfTheLink",
                 R"("folders": [{"path": "vantoro_restore\\vantoro_restore.exe.lnk"}])",
                 "vantoro_restore\\vantoro_restore.exe.lnk: expected to be a file below folders, "
                 "all with valid names"},
        InTheWay{"JunctionWithFilesBelow",
                 R"("junctions": [{"path": "ProgramData", "target": "D:\\"}])",
                 "ProgramData: expected a junction where the copy has no files"}),
    tests::NamedAsPrinted());

}  // namespace
}  // namespace simulator
