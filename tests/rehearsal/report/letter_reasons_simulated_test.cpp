// The reasons of wrong letters, each on a server where it is the reason. A volume of the source is
// D: and has E: at first, as a second one is E: and has D:.
#include <string>
#include <utility>
#include <vector>

#include "logger/b_logger.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/description/tool_history.h"
#include "rehearsal/report/letter_reasons.h"
#include "rehearsal/report/report_letters.h"
#include "restore/disks.h"
#include "simulator/model/server.h"
#include "support/process.h"
#include "support/simulated_scenario_test.h"

namespace simulator {
namespace {

class LetterReasons : public tests::ScenarioTest {
 protected:
  // Restores the letters of the server with these disks behind the system's.
  std::vector<VolumeLetters> Letters(const std::string& disks, const std::string& keys = "",
                                     bool runs = true) {
    const tests::NewProcess process;
    const Scenario scenario = Read(
        R"({"title": "t", "disks": [{"size": "127 GB", "partitions": [{"size": "126 GB",
        "info": "Boot", "volume": {"letter": "C", "source_letter": "C", "backup_info": ["C"]}}]})" +
        disks + "]" + keys + "}");
    Server server;
    const auto history = std::make_shared<ToolHistory>();
    Build(scenario, server, nullptr, history);
    const std::vector<DiskFacts> before = GatherDisks(server);
    if (runs) {
      logger::BLogger logger("vantoro_restore", "");
      static_cast<void>(restore::RestoreDisks(logger));
    }
    return GatherLetters(scenario, before, history->Calls(), LettersOn(server));
  }

  // The reason of the first letter that is wrong.
  LetterReason First(const std::string& disks, const std::string& keys = "", bool runs = true) {
    for (const VolumeLetters& volume : Letters(disks, keys, runs)) {
      if (volume.IsWrong()) return volume.reason;
    }
    return {};
  }

  static std::string Disk(const std::string& volume, const std::string& keys = "",
                          const std::string& before = "") {
    return R"(, {"size": "200 GB", )" + keys + R"("partitions": [)" + before +
           R"({"size": "100 GB", "volume": {)" + volume + "}}]}";
  }
};

const std::string kFirst =
    R"("label": "First", "letter": "E", "source_letter": "D", "backup_info": ["D"])";
const std::string kSecond =
    R"("label": "Second", "letter": "D", "source_letter": "E", "backup_info": ["E"])";

#define EXPECT_REASON(reason, expected_cause, expected_text) \
  do {                                                       \
    const LetterReason found = (reason);                     \
    EXPECT_EQ(found.cause, expected_cause);                  \
    EXPECT_EQ(found.text, expected_text);                    \
  } while (false)

TEST_F(LetterReasons, HaveNoneForTwoVolumesThatExchangeTheirLetters) {
  const std::vector<VolumeLetters> letters = Letters(Disk(kFirst) + Disk(kSecond));
  ASSERT_EQ(letters.size(), 3u);
  EXPECT_EQ(letters[1].after, 'D');
  EXPECT_EQ(letters[2].after, 'E');
  for (const VolumeLetters& volume : letters) {
    EXPECT_FALSE(volume.IsWrong());
    EXPECT_EQ(volume.reason.cause, LetterCause::kNone);
  }
}

TEST_F(LetterReasons, NameADiskThatIsOffline) {
  EXPECT_REASON(
      First(Disk(R"("source_letter": "D", "backup_info": ["D"])", R"("online": false, )")),
      LetterCause::kDiskOffline, "disk 1 is offline");
}

TEST_F(LetterReasons, NameTheOfflineDiskAtWhichTheStageEnded) {
  const std::vector<VolumeLetters> letters =
      Letters(Disk(kFirst) + R"(, {"size": "64 GB", "online": false})" + Disk(kSecond));
  ASSERT_EQ(letters.size(), 3u);
  EXPECT_EQ(letters[1].after, std::nullopt);
  EXPECT_EQ(letters[2].after, 'D');
  for (const size_t i : {1u, 2u}) {
    EXPECT_REASON(letters[i].reason, LetterCause::kStageEnded,
                  "the work on letters ended at disk 2, which is offline");
  }
}

TEST_F(LetterReasons, NameADiskWhoseSizeIsNotShownInGB) {
  const std::string disk = R"(, {"size": "8189 MB", "partitions": [{"size": "8000 MB",
      "volume": {)" + kFirst +
                           "}}]}";
  EXPECT_REASON(First(disk), LetterCause::kSizeNotInGB,
                "the size of disk 1 is not shown in GB: \"8189 MB\"");
}

TEST_F(LetterReasons, NameTheDiskWithoutAVolumeAtWhichTheStageEnded) {
  const std::string small = R"(, {"size": "64 GB", "partitions": [{"size": "900 MB",
      "volume": {"letter": "S"}}]})";
  for (const std::string& disk : {std::string(R"(, {"size": "64 GB"})"), small}) {
    EXPECT_REASON(
        First(disk + Disk(kFirst)), LetterCause::kStageEnded,
        "the work on letters ended at disk 1, which has no volume whose size is shown in GB");
  }
}

TEST_F(LetterReasons, NameTheDiskWithoutBackupInfoAtWhichTheStageEnded) {
  for (const char* const record : {R"("letter": "S")", R"("letter": "S", "backup_info": [""])",
                                   R"("letter": "S", "backup_info": ["B"])", R"("label": "new")"}) {
    EXPECT_REASON(First(Disk(record) + Disk(kFirst)), LetterCause::kStageEnded,
                  "the work on letters ended at disk 1, which has no valid backup_info");
  }
}

TEST_F(LetterReasons, NameTheDiskToWhichNoLetterCouldBeGiven) {
  // The first partition is one without a volume.
  EXPECT_REASON(
      First(Disk(R"("source_letter": "D", "backup_info": ["D"])", "", R"({"size": "128 MB"}, )")),
      LetterCause::kStageEnded,
      "the work on letters ended at disk 1, which could be given no letter by diskpart");
}

TEST_F(LetterReasons, NameTheVolumeThatHasTheLetter) {
  const std::vector<VolumeLetters> letters =
      Letters(Disk(R"("letter": "F", "source_letter": "F", "backup_info": ["F"]}},
              {"size": "50 GB", "volume": {"label": "Tools", "letter": "D")") +
              Disk(kFirst));
  ASSERT_EQ(letters.size(), 4u);
  EXPECT_EQ(letters[2].label, "Tools");
  EXPECT_EQ(letters[2].source, std::nullopt);
  EXPECT_EQ(letters[2].after, 'D');
  EXPECT_REASON(letters[3].reason, LetterCause::kTaken,
                "D: is taken by Tools (disk 1, partition 2)");
}

TEST_F(LetterReasons, NameAVolumeWithoutALabelByItsPlace) {
  EXPECT_REASON(First(Disk(R"("letter": "F", "source_letter": "F", "backup_info": ["F"]}},
                              {"size": "50 GB", "volume": {"letter": "D")") +
                      Disk(kFirst)),
                LetterCause::kTaken,
                "D: is taken by a volume without a label (disk 1, partition 2)");
}

TEST_F(LetterReasons, NameAFurtherVolumeOfADisk) {
  EXPECT_REASON(First(Disk(R"("letter": "F", "source_letter": "F", "backup_info": ["F"]}},
                              {"size": "50 GB", "volume": {)" +
                           kFirst)),
                LetterCause::kOtherVolume, "the program looks at another volume of its disk");
}

TEST_F(LetterReasons, NameARecordOfAnotherLetter) {
  EXPECT_REASON(First(Disk(R"("letter": "E", "source_letter": "D", "backup_info": ["E"])")),
                LetterCause::kOtherRecord, "its backup_info names E:");
}

TEST_F(LetterReasons, NameThePartitionThatTheProgramChanges) {
  EXPECT_REASON(First(Disk(kFirst, R"("gpt": true, )", R"({"size": "128 MB"}, )")),
                LetterCause::kOtherPartition,
                "the program changes the letter of partition 1 of its disk");
}

TEST_F(LetterReasons, NameAToolThatFailed) {
  const auto tool = [](const char* call) {
    return R"(, "tools": [{"name": "diskpart", "exit_code": 5, "call": )" + std::string(call) +
           "}]";
  };
  EXPECT_REASON(First(Disk(kFirst), tool("1")), LetterCause::kToolFailed,
                "diskpart could not list the disks, exit code 5");
  EXPECT_REASON(First(Disk(kFirst), tool("3")), LetterCause::kToolFailed,
                "diskpart could not show disk 1, exit code 5");
  EXPECT_REASON(First(Disk(kFirst), tool("4")), LetterCause::kToolFailed,
                "diskpart could not remove its letter, exit code 5");
  EXPECT_REASON(First(Disk(kFirst), tool("5")), LetterCause::kToolFailed,
                "diskpart could not assign the letter, exit code 5");
}

TEST_F(LetterReasons, SayThatTheRunDidNotComeToTheLetters) {
  EXPECT_REASON(First(Disk(kFirst), "", false), LetterCause::kNotReached,
                "the run did not come to the letters");
}

TEST_F(LetterReasons, NameTheSystemVolumeWhoseLetterStays) {
  EXPECT_EQ(ReasonOf({0, 1, 'D', 'C', 'C', ""}, {{true, false, true, "127 GB", 1, true, 'C', 'D'}},
                     {{"diskpart", "list disk "}})
                .cause,
            LetterCause::kSystemVolume);
}

}  // namespace
}  // namespace simulator
