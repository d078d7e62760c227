#include <string>

#include "rehearsal/description/scenario_source.h"
#include "simulator/model/security/descriptor.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

class ScenarioSourceTest : public tests::ScenarioTest {
 protected:
  // Of the volume on the second disk.
  ScenarioVolume ReadVolume(const std::string& keys) {
    return Read(WithVolume(keys)).disks.at(1).partitions.at(0).volume.value();
  }
  std::string ErrorOfVolume(const std::string& keys) {
    const std::string error = ErrorOf(WithVolume(keys));
    const std::string place = ": /disks/1/partitions/0/volume";
    return error.starts_with(place) ? error.substr(place.size()) : "elsewhere: " + error;
  }
};

TEST_F(ScenarioSourceTest, ReadsEveryKey) {
  const ScenarioVolume volume = ReadVolume(R"("source": {
      "sddl": "O:BAG:SYD:",
      "folders": [{"path": "a b\\c", "sddl": "O:SY", "copy_sddl": "O:BU", "attributes": "HS",
                   "folders": 2, "files": 3}],
      "files": [{"path": "f.txt", "sddl": "G:SY", "copy_sddl": "G:BU", "attributes": "RATOI"}],
      "junctions": [{"path": "j", "target": "X:\\y", "sddl": "O:AU", "attributes": "H",
                     "copy": "file"}]},
      "lost": ["junctions", "acl_list"], "unreadable": ["junction_list"])");
  const ScenarioSource& source = volume.source.value();
  EXPECT_EQ(source.root_given->owner, (Sid{5, {32, 544}}));
  ASSERT_EQ(source.folders.size(), 1u);
  const ScenarioObject& folder = source.folders[0];
  EXPECT_EQ(folder.path, "a b\\c");
  EXPECT_EQ(folder.given->owner, (Sid{5, {18}}));
  EXPECT_EQ(folder.copy_given->owner, (Sid{5, {32, 545}}));
  EXPECT_EQ(folder.attributes,
            DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
  EXPECT_EQ(folder.folders, 2);
  EXPECT_EQ(folder.files, 3);
  ASSERT_EQ(source.files.size(), 1u);
  const ScenarioObject& file = source.files[0];
  EXPECT_EQ(file.given->group, (Sid{5, {18}}));
  EXPECT_EQ(file.copy_given->group, (Sid{5, {32, 545}}));
  EXPECT_EQ(file.attributes,
            DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_TEMPORARY |
                  FILE_ATTRIBUTE_OFFLINE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED});
  ASSERT_EQ(source.junctions.size(), 1u);
  const ScenarioJunction& junction = source.junctions[0];
  EXPECT_EQ(junction.object.given->owner, (Sid{5, {11}}));
  EXPECT_EQ(junction.object.attributes,
            DWORD{FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_HIDDEN});
  EXPECT_EQ(junction.target, "X:\\y");
  EXPECT_EQ(junction.copy, JunctionCopy::kFile);
  EXPECT_FALSE(volume.lost.descriptors);
  EXPECT_TRUE(volume.lost.junctions);
  EXPECT_FALSE(volume.lost.attributes);
  EXPECT_FALSE(volume.lost.prepare_folder);
  EXPECT_FALSE(volume.lost.junction_list);
  EXPECT_TRUE(volume.lost.acl_list);
  EXPECT_TRUE(volume.unreadable.junction_list);
  EXPECT_FALSE(volume.unreadable.acl_list);
}

TEST_F(ScenarioSourceTest, LosesWhatAPlainCopyLosesUnlessTheScenarioSaysOtherwise) {
  const ScenarioLosses lost = ReadVolume(R"("source": {})").lost;
  EXPECT_TRUE(lost.descriptors);
  EXPECT_TRUE(lost.junctions);
  EXPECT_TRUE(lost.attributes);
  EXPECT_FALSE(lost.prepare_folder);
  EXPECT_FALSE(lost.junction_list);
  EXPECT_FALSE(lost.acl_list);
}

TEST_F(ScenarioSourceTest, GivesAFileWithoutAttributesTheOneForNone) {
  const ScenarioVolume volume =
      ReadVolume(R"("source": {"files": [{"path": "f", "attributes": ""}, {"path": "g"}]})");
  EXPECT_EQ(volume.source->files[0].attributes, DWORD{FILE_ATTRIBUTE_NORMAL});
  EXPECT_EQ(volume.source->files[1].attributes, DWORD{FILE_ATTRIBUTE_ARCHIVE});
}

TEST_F(ScenarioSourceTest, NamesASourceOfAVolumeThatHadNoLetter) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "2 GB", "partitions": [{"size": "1 GB",
                    "volume": {"letter": "E", "source": {}}}]})")),
            ": /disks/1/partitions/0/volume/source: expected a source letter beside it");
}

TEST_F(ScenarioSourceTest, NamesALossWithoutASource) {
  EXPECT_EQ(ErrorOfVolume(R"("lost": [])"), "/lost: expected a source beside it");
  EXPECT_EQ(ErrorOfVolume(R"("unreadable": [])"), "/unreadable: expected a source beside it");
}

TEST_F(ScenarioSourceTest, NamesAnUnknownLoss) {
  EXPECT_EQ(ErrorOfVolume(R"("source": {}, "lost": ["junctions", "all"])"),
            "/lost/1: expected one of \"acl_list\", \"attributes\", \"descriptors\", "
            "\"junction_list\", \"junctions\", \"prepare_folder\"");
  EXPECT_EQ(ErrorOfVolume(R"("source": {}, "unreadable": ["descriptors"])"),
            "/unreadable/0: expected one of \"acl_list\", \"junction_list\"");
}

TEST_F(ScenarioSourceTest, NamesAWrongPath) {
  for (const char* const path :
       {"", "\\\\a", "a\\\\", "a\\\\\\\\b", "C:\\\\a", "a/b", "a\\\\..", "a ", "a\\\\b.", "a*"}) {
    EXPECT_EQ(ErrorOfVolume(R"("source": {"folders": [{"path": ")" + std::string(path) + "\"}]}"),
              "/source/folders/0/path: expected a path behind the root, such as \"Data\\\\Shares\"")
        << path;
  }
}

TEST_F(ScenarioSourceTest, NamesAPathThatIsTooLong) {
  const std::string path(32'765, 'a');
  EXPECT_EQ(ErrorOfVolume(R"("source": {"folders": [{"path": ")" + path + "\"}]}"),
            "/source/folders/0/path: expected a path of at most 32764 characters");
}

TEST_F(ScenarioSourceTest, TakesTargetsOfJunctionsThatFitInAReparsePoint) {
  const auto error_of = [this](size_t length) {
    const std::string target = "D:/" + std::string(length - 3, 'a');
    return ErrorOfVolume(R"("source": {"junctions": [{"path": "j", "target": ")" + target +
                         "\"}]}");
  };
  EXPECT_EQ(error_of(8178), "elsewhere: no error");
  EXPECT_EQ(error_of(8179),
            "/source/junctions/0/target: expected a target of at most 8178 characters");
}

TEST_F(ScenarioSourceTest, NamesAPathThatComesTwice) {
  EXPECT_EQ(ErrorOfVolume(R"("source": {"folders": [{"path": "a"}], "files": [{"path": "A"}]})"),
            "/source/files/0/path: expected a path that comes once");
}

TEST_F(ScenarioSourceTest, NamesAPathBelowAFileOrAJunction) {
  EXPECT_EQ(
      ErrorOfVolume(R"("source": {"folders": [{"path": "a\\b\\c"}], "files": [{"path": "A\\B"}]})"),
      "/source/folders/0/path: expected a path below folders only");
  EXPECT_EQ(ErrorOfVolume(R"("source": {"files": [{"path": "j\\f"}],
                          "junctions": [{"path": "j", "target": "D:\\"}]})"),
            "/source/files/0/path: expected a path below folders only");
}

TEST_F(ScenarioSourceTest, NamesATextThatIsNoDescriptor) {
  const std::string expected =
      "expected a security descriptor as text, such as \"D:PAI(A;;FA;;;BA)\"";
  EXPECT_EQ(ErrorOfVolume(R"json("source": {"files": [{"path": "f", "sddl": "D:(A)"}]})json"),
            "/source/files/0/sddl: " + expected);
  EXPECT_EQ(ErrorOfVolume(R"("source": {"files": [{"path": "f", "copy_sddl": "O:XX"}]})"),
            "/source/files/0/copy_sddl: " + expected);
}

TEST_F(ScenarioSourceTest, NamesARootWhoseDescriptorIsIncomplete) {
  for (const char* const sddl : {"G:SYD:", "O:SYD:", "O:SYG:SY"}) {
    EXPECT_EQ(ErrorOfVolume(R"("source": {"sddl": ")" + std::string(sddl) + "\"}"),
              "/source/sddl: expected the owner, the group and the DACL of a root, which inherits "
              "nothing")
        << sddl;
  }
}

TEST_F(ScenarioSourceTest, NamesUnknownAttributes) {
  EXPECT_EQ(ErrorOfVolume(R"("source": {"files": [{"path": "f", "attributes": "RD"}]})"),
            "/source/files/0/attributes: expected letters of \"RHSATOI\"");
}

TEST_F(ScenarioSourceTest, NamesAnUnknownKindOfCopy) {
  EXPECT_EQ(ErrorOfVolume(R"("source": {"junctions": [{"path": "j", "target": "D:\\",
                          "copy": "lost"}]})"),
            "/source/junctions/0/copy: expected \"junction\", \"nothing\", \"file\" or \"folder\"");
}

TEST_F(ScenarioSourceTest, NamesACountOutOfRange) {
  EXPECT_EQ(ErrorOfVolume(R"("source": {"folders": [{"path": "a", "files": -1}]})"),
            "/source/folders/0/files: expected a whole number from 0 to 1000000");
}

}  // namespace
}  // namespace simulator
