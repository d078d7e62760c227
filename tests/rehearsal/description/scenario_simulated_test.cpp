#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "support/simulated_child.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

constexpr uint64_t kGB = uint64_t{1} << 30;

using tests::ScenarioTest;

TEST_F(ScenarioTest, ReadsEveryKey) {
  WriteHostFile("files/a.txt", "x");
  const Scenario scenario = Read(WithDisks(
      R"(, {"size": "2 TB", "free": "500 MB", "model": "M", "gpt": true, "online": true,
            "partitions": [{"size": "128 MB"}, {"number": 4, "size": "7 KB", "info": "Hidden",
            "volume": {"label": "L", "file_system": "ReFS", "letter": "e", "source_letter": "D",
            "drive_type": "removable", "backup_info": ["D", "", "x"], "import": "files"}}]})",
      R"(, "windows": {"version": "6.3.9600", "language": 2052, "computer_name": "N"},
          "tools": [{"name": "diskpart", "call": 2, "exit_code": 5, "output": "o"}],
          "faults": [{"call": "CreatePipe", "occurrence": 3, "error": 8, "for_good": true}],
          "startup_links": {"common": false, "program": false})"));
  EXPECT_EQ(scenario.title, "t");
  EXPECT_EQ(scenario.major_version, 6u);
  EXPECT_EQ(scenario.minor_version, 3u);
  EXPECT_EQ(scenario.build, 9600u);
  EXPECT_EQ(scenario.language, 2052);
  EXPECT_EQ(scenario.computer_name, "N");
  ASSERT_EQ(scenario.disks.size(), 2u);
  const ScenarioDisk& disk = scenario.disks[1];
  EXPECT_EQ(disk.size, 2048 * kGB);
  EXPECT_EQ(disk.free, 500u << 20);
  EXPECT_EQ(disk.model, "M");
  EXPECT_TRUE(disk.gpt);
  EXPECT_TRUE(disk.online);
  ASSERT_EQ(disk.partitions.size(), 2u);
  EXPECT_EQ(disk.partitions[0].number, 1);
  EXPECT_FALSE(disk.partitions[0].volume);
  EXPECT_EQ(disk.partitions[1].number, 4);
  EXPECT_EQ(disk.partitions[1].size, 7u << 10);
  EXPECT_EQ(disk.partitions[1].info, "Hidden");
  ASSERT_TRUE(disk.partitions[1].volume);
  const ScenarioVolume& volume = *disk.partitions[1].volume;
  EXPECT_EQ(volume.label, "L");
  EXPECT_EQ(volume.file_system, "ReFS");
  EXPECT_EQ(volume.letter, 'E');
  EXPECT_EQ(volume.source_letter, 'D');
  EXPECT_EQ(volume.drive_type, UINT{DRIVE_REMOVABLE});
  EXPECT_EQ(volume.backup_info, (std::vector<std::string>{"D", "", "x"}));
  EXPECT_EQ(volume.import, folder_ / "files");
  ASSERT_EQ(scenario.tools.size(), 1u);
  EXPECT_EQ(scenario.tools[0].call, 2);
  EXPECT_EQ(scenario.tools[0].exit_code, 5u);
  EXPECT_EQ(scenario.tools[0].output, "o");
  ASSERT_EQ(scenario.faults.size(), 1u);
  EXPECT_EQ(scenario.faults[0].name, "CreatePipe");
  EXPECT_EQ(scenario.faults[0].occurrence, 3);
  EXPECT_EQ(scenario.faults[0].error, 8u);
  EXPECT_EQ(scenario.faults[0].lasting, Lasting::kForGood);
  EXPECT_FALSE(scenario.common_startup_link);
  EXPECT_FALSE(scenario.program_link);
}

TEST_F(ScenarioTest, ReadsDrivesWithoutAMedium) {
  const Scenario scenario =
      Read(WithDisks(R"(, {"medium": false, "model": "Reader"})",
                     R"(, "empty_drives": [{"letter": "D", "drive_type": "cd"},
                            {"letter": "e", "drive_type": "removable"}])"));
  ASSERT_EQ(scenario.disks.size(), 2u);
  EXPECT_TRUE(scenario.disks[0].has_medium);
  EXPECT_FALSE(scenario.disks[1].has_medium);
  EXPECT_EQ(scenario.disks[1].model, "Reader");
  ASSERT_EQ(scenario.empty_drives.size(), 2u);
  EXPECT_EQ(scenario.empty_drives[0].letter, 'D');
  EXPECT_EQ(scenario.empty_drives[0].drive_type, UINT{DRIVE_CDROM});
  EXPECT_EQ(scenario.empty_drives[1].letter, 'E');
  EXPECT_EQ(scenario.empty_drives[1].drive_type, UINT{DRIVE_REMOVABLE});
}

TEST_F(ScenarioTest, NamesAWrongDriveWithoutAMedium) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"medium": false, "size": "1 GB"})")),
            ": /disks/1/size: expected no such key, only \"medium\", \"model\"");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "empty_drives": [{"letter": "C", "drive_type": "cd"}])")),
            ": /empty_drives/0/letter: expected a letter that no other volume has, not C again");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "empty_drives": [{"letter": "D", "drive_type": "fixed"}])")),
            ": /empty_drives/0/drive_type: expected \"removable\" or \"cd\"");
}

TEST_F(ScenarioTest, BuildsDrivesWithoutAMedium) {
  Server server;
  Build(Read(WithDisks(R"(, {"medium": false})",
                       R"(, "empty_drives": [{"letter": "D", "drive_type": "cd"}])")),
        server);
  EXPECT_FALSE(server.disks().at(1).has_medium);
  const std::shared_ptr<Volume> drive = server.files().VolumeAt('D');
  ASSERT_TRUE(drive);
  EXPECT_FALSE(drive->has_medium);
  EXPECT_EQ(drive->drive_type, UINT{DRIVE_CDROM});
}

TEST_F(ScenarioTest, NamesAFileThatIsNotThere) {
  try {
    ReadScenario(File());
    FAIL();
  } catch (const ScenarioError& error) {
    EXPECT_EQ(error.what(),
              File().string() + ": expected a scenario file, found none that can be read");
  }
}

TEST_F(ScenarioTest, NamesTheLineAndColumnOfWhatIsNotJson) {
  EXPECT_EQ(ErrorOf("{\n  \"title\": ?\n}\n"), ":2:12: expected JSON");
  EXPECT_EQ(ErrorOf(""), ":1:1: expected JSON");
}

TEST_F(ScenarioTest, NamesAKeyThatIsGivenTwice) {
  const std::string expected = ": expected a key that is given once";
  EXPECT_EQ(ErrorOf(R"({"title": "t", "disks": [], "title": "u"})"), ": /title" + expected);
  EXPECT_EQ(ErrorOf(WithDisks(R"(, [1, {}], {"a/b": [[], {"size": 1, "sizes": 2, "size": 1}]})")),
            ": /disks/2/a~1b/1/size" + expected);
  // The same key of another object, and a text that is no key.
  EXPECT_EQ(ErrorOf(R"({"title": "disks", "disks": [{"title": "t"}]})"),
            ": /disks/0/title: expected no such key, only \"medium\", \"size\", \"free\", \"model\", "
            "\"gpt\", \"online\", \"dynamic\", \"partitions\"");
}

TEST_F(ScenarioTest, ReadsSpannedVolumesAndTextsOfTheDiskTool) {
  const Scenario scenario = Read(WithDisks(
      R"(, {"size": "2 GB", "dynamic": true, "partitions": [{"size": "1 GB", "volume": {}}]},
         {"size": "9 GB", "dynamic": true, "partitions": [{"size": "8 GB",
          "part_of": {"disk": 1, "partition": 1}}]})",
      R"(, "windows": {"language": 1031, "diskpart": {"Healthy": "Fehlerfrei"}})"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(server.system().disk_tool_texts,
            (std::map<std::string, std::string>{{"Healthy", "Fehlerfrei"}}));
  EXPECT_TRUE(server.disks()[1].dynamic);
  const Volume& volume = *server.disks()[1].partitions[0].volume;
  EXPECT_EQ(server.disks()[2].partitions[0].volume.get(), &volume);
  EXPECT_EQ(volume.size, 9 * kGB);
}

TEST_F(ScenarioTest, NamesAPartThatIsOfNoSpannedVolume) {
  const std::string disk =
      R"(, {"size": "2 GB", "dynamic": true, "partitions": [{"size": "1 GB", "volume": {}}]})";
  const auto error_of = [this, &disk](const std::string& keys, const std::string& part) {
    return ErrorOf(WithDisks(disk + R"(, {"size": "2 GB", )" + keys +
                             R"("partitions": [{"size": "1 GB", )" + part + "}]}"));
  };
  const std::string part_of = ": /disks/2/partitions/0/part_of: expected ";
  const std::string dynamic = R"("dynamic": true, )";
  const std::string part = R"("part_of": {"disk": 1, "partition": 1})";
  EXPECT_EQ(error_of(dynamic, part), "no error");
  EXPECT_EQ(error_of("", part), part_of + "to be on a dynamic disk that is online");
  EXPECT_EQ(error_of(dynamic + R"("online": false, )", part),
            part_of + "to be on a dynamic disk that is online");
  EXPECT_EQ(error_of(dynamic, part + R"(, "volume": {})"), part_of + "no volume beside it");
  for (const char* const other :
       {R"("part_of": {"disk": 0, "partition": 1})", R"("part_of": {"disk": 1, "partition": 2})"}) {
    EXPECT_EQ(error_of(dynamic, other), part_of + "a volume on a dynamic disk that is online");
  }
  EXPECT_EQ(error_of(dynamic, R"("part_of": {"disk": 2, "partition": 1})"),
            ": /disks/2/partitions/0/part_of/disk: expected a whole number from 0 to 1");
}

TEST_F(ScenarioTest, NamesATextThatTheDiskToolDoesNotHave) {
  const std::string error =
      ErrorOf(WithDisks("", R"(, "windows": {"diskpart": {"healthy": "x"}})"));
  EXPECT_TRUE(error.starts_with(": /windows/diskpart/healthy: expected no such key, only "))
      << error;
}

TEST_F(ScenarioTest, NamesAMissingKey) {
  EXPECT_EQ(ErrorOf("{}"), ": expected the key \"title\"");
  EXPECT_EQ(ErrorOf(WithDisks(", {}")), ": /disks/1: expected the key \"size\"");
}

TEST_F(ScenarioTest, NamesAnUnknownKey) {
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "a/b": 1)")),
            ": /a~1b: expected no such key, only \"title\", \"windows\", \"boot\", \"disks\", "
            "\"empty_drives\", \"tools\", \"faults\", \"startup_links\"");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "startup_links": {"all": true})")),
            ": /startup_links/all: expected no such key, only \"common\", \"program\"");
}

TEST_F(ScenarioTest, NamesAValueOfTheWrongType) {
  EXPECT_EQ(ErrorOf("[]"), ": expected an object");
  EXPECT_EQ(ErrorOf(R"({"title": 1})"), ": /title: expected a text");
  EXPECT_EQ(ErrorOf(R"({"title": "t", "disks": {}})"), ": /disks: expected an array");
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "gpt": "yes"})")),
            ": /disks/1/gpt: expected true or false");
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "windows": {"language": 1.5})")),
            ": /windows/language: expected a whole number from 1 to 65535");
}

TEST_F(ScenarioTest, NamesAValueOutOfRange) {
  EXPECT_EQ(ErrorOf(WithDisks("", R"(, "faults": [{"call": "_open", "error": 4294967296}])")),
            ": /faults/0/error: expected a whole number from 0 to 4294967295");
  EXPECT_EQ(
      ErrorOf(WithDisks("", R"(, "faults": [{"call": "_open", "error": 18446744073709551615}])")),
      ": /faults/0/error: expected a whole number from 0 to 4294967295");
  EXPECT_EQ(
      ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"number": 0, "size": "0 B"}]})")),
      ": /disks/1/partitions/0/number: expected a whole number from 1 to 128");
}

TEST_F(ScenarioTest, NamesATitleOfMoreThanOneLine) {
  EXPECT_EQ(ErrorOf(R"({"title": "a\nb"})"), ": /title: expected one line of text, not empty");
}

TEST_F(ScenarioTest, NamesAWrongSize) {
  for (const char* const size : {"", "GB", "12GB", "1,000 GB", "-1 GB", "1 PB", "1 GB ",
                                 "99999999999 TB", "99999999999999999999 B"}) {
    EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": ")" + std::string(size) + "\"}")),
              ": /disks/1/size: expected a size such as \"127 GB\", in B, KB, MB, GB or TB")
        << size;
  }
}

TEST_F(ScenarioTest, NamesAWrongLetter) {
  for (const char* const letter : {"", "1", "EF", "E:"}) {
    EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                      "volume": {"letter": ")" +
                                std::string(letter) + "\"}}]}")),
              ": /disks/1/partitions/0/volume/letter: expected a drive letter from \"A\" to \"Z\"")
        << letter;
  }
}

TEST_F(ScenarioTest, NamesALetterThatTwoVolumesHave) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "volume": {"letter": "c"}}]})")),
            ": /disks/1/partitions/0/volume/letter: expected a letter that no other volume has, "
            "not C again");
}

TEST_F(ScenarioTest, NamesASourceLetterThatTwoVolumesHad) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "volume": {"source_letter": "C"}}]})")),
            ": /disks/1/partitions/0/volume/source_letter: expected a letter that no other volume "
            "has, not C again");
}

TEST_F(ScenarioTest, NamesAServerWithoutC) {
  EXPECT_EQ(ErrorOf(R"({"title": "t", "disks": []})"),
            ": /disks: expected a volume with the letter C, where Windows and the program are");
}

TEST_F(ScenarioTest, NamesAPartitionNumberThatComesTwice) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"number": 2, "size": "1 MB"},
                    {"number": 2, "size": "1 MB"}]})")),
            ": /disks/1/partitions/1: expected a number that no other partition of the disk has");
}

TEST_F(ScenarioTest, NamesAPartitionThatDoesNotFit) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "2 GB", "free": "1 GB", "partitions": [
                    {"size": "1 GB"}, {"size": "1 B"}]})")),
            ": /disks/1/partitions/1/size: expected a partition that fits beside the disk's others "
            "and its free space");
}

TEST_F(ScenarioTest, NamesFreeSpaceLargerThanTheDisk) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "free": "2 GB"})")),
            ": /disks/1/free: expected no more than the disk's size");
}

TEST_F(ScenarioTest, NamesALetterOnADiskThatIsOffline) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "online": false, "partitions": [
                    {"size": "1 MB", "volume": {"letter": "E"}}]})")),
            ": /disks/1/partitions/0/volume/letter: expected no letter on a disk that is offline");
}

TEST_F(ScenarioTest, NamesATextThatIsNoneOfItsChoices) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "info": "Big"}]})")),
            ": /disks/1/partitions/0/info: expected \"System\", \"Boot\" or \"Hidden\"");
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "volume": {"drive_type": "cdrom"}}]})")),
            ": /disks/1/partitions/0/volume/drive_type: expected \"fixed\" or \"removable\"");
  EXPECT_EQ(
      ErrorOf(WithDisks("", R"(, "tools": [{"name": "format", "exit_code": 1}])")),
      ": /tools/0/name: expected a tool of this Windows: \"diskpart\" \"bcdedit\" \"bcdboot\"");
}

TEST_F(ScenarioTest, NamesAWrongWindowsVersion) {
  for (const char* const version : {"", "10", "10.0", "10.0.", "10.0.14393.0", "5.1.2600", "x"}) {
    EXPECT_EQ(
        ErrorOf(WithDisks("", R"(, "windows": {"version": ")" + std::string(version) + "\"}")),
        ": /windows/version: expected Windows 5.2 or a version from 6.0 on with its build, such as "
        "\"10.0.14393\"")
        << version;
  }
}

TEST_F(ScenarioTest, NamesALineOfBackupInfoThatIsTwo) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "volume": {"backup_info": ["D", "a\nb"]}}]})")),
            ": /disks/1/partitions/0/volume/backup_info/1: expected one line of text");
}

TEST_F(ScenarioTest, NamesAFolderToImportThatIsNotThere) {
  EXPECT_EQ(ErrorOf(WithDisks(R"(, {"size": "1 GB", "partitions": [{"size": "1 MB",
                    "volume": {"import": "none"}}]})")),
            ": /disks/1/partitions/0/volume/import: expected a folder, found none at \"" +
                (folder_ / "none").string() + "\"");
}

TEST_F(ScenarioTest, BuildsSystemFactsLettersAndBackupInformation) {
  const Scenario scenario = Read(WithDisks(
      R"(, {"size": "200 GB", "gpt": true, "partitions": [{"size": "128 MB"}, {"size": "199 GB",
            "volume": {"label": "Data", "letter": "E", "backup_info": ["D", "", "", "3"]}}]})",
      R"(, "windows": {"version": "6.3.9600", "computer_name": "N"})"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(server.system().major_version, 6u);
  EXPECT_EQ(server.system().build, 9600u);
  EXPECT_EQ(server.system().computer_name, "N");
  ASSERT_EQ(server.disks().size(), 2u);
  EXPECT_EQ(server.disks()[1].number, 1);
  EXPECT_TRUE(server.disks()[1].gpt);
  EXPECT_EQ(server.disks()[0].partitions.at(0).volume, server.files().VolumeAt('C'));
  EXPECT_EQ(server.disks()[1].partitions.at(1).volume, server.files().VolumeAt('E'));
  EXPECT_EQ(server.files().VolumeAt('E')->label, "Data");
  EXPECT_EQ(server.files().Read("E:\\vantoro_prepare\\backup_info"), "D\r\n\r\n\r\n3\r\n");
}

TEST_F(ScenarioTest, BuildsAVolumeWithoutALetterWithItsFiles) {
  const Scenario scenario = Read(WithDisks(
      R"(, {"size": "2 GB", "partitions": [{"size": "1 GB", "volume": {"backup_info": ["D"]}}]})"));
  Server server;
  Build(scenario, server);
  const Volume& volume = *server.disks()[1].partitions.at(0).volume;
  EXPECT_EQ(server.files().LetterOf(volume), std::nullopt);
  EXPECT_EQ(server.files().ReadOn(volume, "vantoro_prepare\\backup_info"), "D\r\n");
}

TEST_F(ScenarioTest, ImportsAHostFolder) {
  WriteHostFile("files/a/b.bin", std::string("x\r\n\0y", 5));
  const Scenario scenario = Read(WithDisks(R"(, {"size": "2 GB", "partitions": [
      {"size": "1 GB", "volume": {"letter": "E", "import": "files"}}]})"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(server.files().Read("E:\\a\\b.bin"), std::string("x\r\n\0y", 5));
}

TEST_F(ScenarioTest, RefusesToImportWhatIsNoFile) {
  WriteHostFile("files/a", "x");
  fs::create_symlink("a", folder_ / "files/link");
  const Scenario scenario = Read(WithDisks(R"(, {"size": "2 GB", "partitions": [
      {"size": "1 GB", "volume": {"letter": "E", "import": "files"}}]})"));
  Server server;
  try {
    Build(scenario, server);
    FAIL();
  } catch (const ScenarioError& error) {
    EXPECT_EQ(error.what(),
              (folder_ / "files/link").string() + ": expected a file that can be read");
  }
}

TEST_F(ScenarioTest, RefusesToImportANameThatWindowsHasNot) {
  WriteHostFile("files/a/x:y", "x");
  const Scenario scenario = Read(WithDisks(R"(, {"size": "2 GB", "partitions": [
      {"size": "1 GB", "volume": {"letter": "E", "import": "files"}}]})"));
  Server server;
  try {
    Build(scenario, server);
    FAIL();
  } catch (const ScenarioError& error) {
    EXPECT_STREQ(error.what(), "a\\x:y: expected to be a file below folders, all with valid names");
  }
}

TEST_F(ScenarioTest, PutsTheStartUpLinksInTheirTwoFolders) {
  Server server;
  Build(Read(WithDisks("")), server);
  EXPECT_TRUE(server.files().Exists(server.system().common_startup_directory +
                                    "\\vantoro_restore.exe.lnk"));
  EXPECT_TRUE(server.files().Exists("C:\\vantoro_restore\\vantoro_restore.exe.lnk"));
}

TEST_F(ScenarioTest, LeavesOutStartUpLinks) {
  Server server;
  Build(Read(WithDisks("", R"(, "startup_links": {"common": false, "program": false})")), server);
  EXPECT_FALSE(server.files().Exists(server.system().common_startup_directory +
                                     "\\vantoro_restore.exe.lnk"));
  EXPECT_FALSE(server.files().Exists("C:\\vantoro_restore\\vantoro_restore.exe.lnk"));
}

TEST_F(ScenarioTest, MakesOneCallOfAToolMisbehave) {
  Server server;
  Build(Read(WithDisks("", R"(, "tools": [{"name": "diskpart", "call": 2, "exit_code": 7,
                             "output": "no\r\n"}])")),
        server);
  server.files().Write("C:\\s", "list disk");
  EXPECT_EQ(tests::RunChild("diskpart /s C:\\s").exit_code, 0u);
  const ToolResult second = tests::RunChild("diskpart /s C:\\s");
  EXPECT_EQ(second.exit_code, 7u);
  EXPECT_EQ(second.output, "no\r\n");
  EXPECT_EQ(tests::RunChild("diskpart /s C:\\s").exit_code, 0u);
}

TEST_F(ScenarioTest, LetsToolsTakeTheirTime) {
  Server server;
  std::vector<std::string> paced;
  Build(Read(WithDisks("", R"(, "tools": [{"name": "bcdedit", "exit_code": 7}])")), server,
        [&paced, &server](const std::string& tool, ChildProcess&) {
          paced.push_back(tool);
          server.clock().Advance(1000);
        });
  const int64_t before = server.clock().Milliseconds();
  EXPECT_EQ(tests::RunChild("bcdedit").exit_code, 7u);
  EXPECT_EQ(tests::RunChild("diskpart /s C:\\none").exit_code, 3u);
  EXPECT_EQ(paced, (std::vector<std::string>{"bcdedit", "diskpart"}));
  EXPECT_EQ(server.clock().Milliseconds(), before + 2000);
}

TEST_F(ScenarioTest, NamesACallThatNoProgramCanMake) {
  for (const char* const name : {"X", "createpipe", "fopen", "SeShutdownPrivilege"}) {
    EXPECT_EQ(ErrorOf(WithDisks(
                  "", R"(, "faults": [{"error": 8, "call": ")" + std::string(name) + "\"}]")),
              ": /faults/0/call: expected the name of a call that the program can make, such as "
              "\"CreatePipe\"")
        << name;
  }
}

TEST_F(ScenarioTest, SetsFaults) {
  Server server;
  Build(Read(WithDisks("", R"(, "faults": [{"call": "ReadFile", "occurrence": 2, "error": 8}])")),
        server);
  EXPECT_EQ(server.calls().Enter("ReadFile", ""), std::nullopt);
  EXPECT_EQ(server.calls().Enter("ReadFile", ""), 8u);
  EXPECT_EQ(server.calls().Enter("ReadFile", ""), std::nullopt);
}

// What ExpectReached throws, without the file's name at its beginning; empty if nothing.
std::string Unreached(const Scenario& scenario, Server& server, const fs::path& file) {
  try {
    ExpectReached(scenario, server);
  } catch (const ScenarioError& error) {
    return std::string(error.what()).substr(file.string().size());
  }
  return "";
}

TEST_F(ScenarioTest, NamesAToolCallThatTheRunDidNotReach) {
  const Scenario scenario = Read(WithDisks("", R"(, "tools": [{"name": "bcdedit", "exit_code": 7},
                                        {"name": "diskpart", "call": 2, "exit_code": 7}])"));
  Server server;
  Build(scenario, server);
  EXPECT_EQ(Unreached(scenario, server, File()),
            ": /tools/0: expected a call that the run makes; it made 0 of bcdedit");
  tests::RunChild("BCDEDIT.EXE /x");
  tests::RunChild("diskpart /s C:\\none");
  EXPECT_EQ(Unreached(scenario, server, File()),
            ": /tools/1/call: expected a call that the run makes; it made 1 of diskpart");
  tests::RunChild("diskpart /s C:\\none");
  EXPECT_EQ(Unreached(scenario, server, File()), "");
}

TEST_F(ScenarioTest, NamesAFaultThatTheRunDidNotReach) {
  const Scenario scenario =
      Read(WithDisks("", R"(, "faults": [{"call": "_mkdir", "occurrence": 2, "error": 8},
                                         {"call": "_access", "error": 8}])"));
  Server server;
  Build(scenario, server);
  server.calls().Enter("_mkdir", "");
  EXPECT_EQ(Unreached(scenario, server, File()),
            ": /faults/0/occurrence: expected a call that the run makes; it made 1 of _mkdir");
  server.calls().Enter("_mkdir", "");
  EXPECT_EQ(Unreached(scenario, server, File()),
            ": /faults/1/call: expected a call that the run makes; it made 0 of _access");
  server.calls().Enter("_access", "");
  EXPECT_EQ(Unreached(scenario, server, File()), "");
}

}  // namespace
}  // namespace simulator
