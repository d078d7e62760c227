// What the engine does to the objects that the lines of a backup file name.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "acl/acl_util.h"
#include "simulator/model/files/files.h"
#include "simulator/model/server.h"
#include "support/simulated_acl_engine.h"

namespace acl {
namespace {

class ACLUtilTest : public tests::AclEngineTest {
 protected:
  ACLUtilTest() {
    server_.files().Write("C:\\Data\\a.txt", "a");
    server_.files().Write("C:\\Data\\b.txt", "b");
  }

  DWORD AttributesOf(const std::string& path) {
    DWORD attributes = 0;
    EXPECT_EQ(server_.file_system().Attributes(path, &attributes),
              static_cast<DWORD>(ERROR_SUCCESS));
    return attributes;
  }
};

constexpr char kSddl[] = "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FR;;;BU)";
constexpr char kOther[] = "O:SYG:BAD:PAI(A;;FA;;;BA)";

TEST_F(ACLUtilTest, WritesOwnerGroupAndBothLists) {
  const std::string sddl =
      "O:S-1-5-21-1-2-3-1107G:BUD:PAI(D;;FW;;;BG)(A;;FA;;;BA)S:PAI(AU;SAFA;FA;;;WD)";
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, sddl)), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), sddl);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\Data\\a.txt>"}));
}

TEST_F(ACLUtilTest, LeavesThePartsThatTheTextDoesNotName) {
  tests::Secure(server_, "C:\\Data\\a.txt", kSddl);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, "G:BU")), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), "O:BAG:BUD:PAI(A;;FA;;;SY)(A;;FR;;;BU)");
}

TEST_F(ACLUtilTest, WritesEveryLineInItsOrder) {
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl) + LineOf("C:\\Data\\b.txt", 0, kSddl) +
                    LineOf("C:\\Data\\a.txt", 0, kOther)),
            kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kOther);
  EXPECT_EQ(SddlOf("C:\\Data\\b.txt"), kSddl);
}

TEST_F(ACLUtilTest, TakesTextInLowerCase) {
  EXPECT_EQ(Restore("\"C:\\Data\\a.txt\",0,\"o:bag:syd:pai(a;;fa;;;ba)\""), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), "O:BAG:SYD:PAI(A;;FA;;;BA)");
}

TEST_F(ACLUtilTest, MakesAnUnprotectedListInheritAgain) {
  tests::Secure(server_, "C:\\Data", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FR;;;BU)");
  tests::Secure(server_, "C:\\Data\\a.txt", kSddl);
  EXPECT_EQ(
      Restore(LineOf("C:\\Data\\a.txt", 0, "O:BAG:SYD:AI(A;;FX;;;WD)(A;ID;FA;;;BA)(A;ID;FR;;;BU)")),
      kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), "O:BAG:SYD:AI(A;;FX;;;WD)(A;ID;FA;;;BA)(A;ID;FR;;;BU)");
}

TEST_F(ACLUtilTest, NamesTheObjectAsItStandsInTheFile) {
  EXPECT_EQ(Restore(LineOf("c:/data\\A.TXT", 0, kSddl)), kRestored);
  const Lines calls = server_.calls().ArgumentsOf("SetNamedSecurityInfoA");
  ASSERT_EQ(calls.size(), 1U);
  EXPECT_TRUE(calls[0].starts_with("\"c:/data\\A.TXT\", ")) << calls[0];
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
}

// Attributes.

TEST_F(ACLUtilTest, SetsAttributesBeforeTheDescriptor) {
  constexpr int kReadOnlyHidden = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", kReadOnlyHidden, kSddl)), kRestored);
  EXPECT_EQ(AttributesOf("C:\\Data\\a.txt"), static_cast<DWORD>(kReadOnlyHidden));
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
  Lines names;
  for (const simulator::TracedCall& call : server_.calls().Trace()) {
    if (call.name.starts_with("Set")) names.push_back(call.name);
  }
  EXPECT_EQ(names, (Lines{"SetFileAttributesA", "SetNamedSecurityInfoA"}));
}

TEST_F(ACLUtilTest, LeavesAttributesOfZeroAlone) {
  server_.files().SetAttributes("C:\\Data\\a.txt", FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  EXPECT_EQ(AttributesOf("C:\\Data\\a.txt"), static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN));
  EXPECT_EQ(server_.calls().ArgumentsOf("SetFileAttributesA"), Lines{});
}

TEST_F(ACLUtilTest, LeavesAttributesAloneWhenTheyAreNotAskedFor) {
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", FILE_ATTRIBUTE_HIDDEN, kSddl),
                    {.restore_attributes = false}),
            kRestored);
  EXPECT_EQ(AttributesOf("C:\\Data\\a.txt"), static_cast<DWORD>(FILE_ATTRIBUTE_ARCHIVE));
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
}

TEST_F(ACLUtilTest, WritesTheDescriptorAlsoWhenAttributesCannotBeSet) {
  server_.calls().FailNext("SetFileAttributesA", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 1, kSddl)), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\Data\\a.txt>"}));
}

TEST_F(ACLUtilTest, SetsAttributesThoughTheDescriptorIsWrong) {
  for (const bool continue_on_error : {true, false}) {
    const std::string path = continue_on_error ? "C:\\Data\\a.txt" : "C:\\Data\\b.txt";
    EXPECT_EQ(Restore(LineOf(path, FILE_ATTRIBUTE_HIDDEN, "wrong"),
                      {.continue_on_error = continue_on_error}),
              continue_on_error ? kRestored : kConvertFailed);
    EXPECT_EQ(AttributesOf(path), static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN));
  }
}

// Lines of all kinds; what follows them is still restored.

TEST_F(ACLUtilTest, SplitsALongLineBehind8189Characters) {
  const std::string line = "\"C:\\" + std::string(8996, 'x');  // 9,000 characters
  EXPECT_EQ(Restore(line + "\r\n" + LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  const Lines report = Report();
  ASSERT_EQ(report.size(), 6U);
  // The first piece loses its quote.
  EXPECT_EQ(report[1], "Restoring ACL of: <" + line.substr(1, 8188) + ">");
  EXPECT_EQ(report[3], "Restoring ACL of: <" + line.substr(8189) + ">");
  EXPECT_EQ(report[5], "Restoring ACL of: <C:\\Data\\a.txt>");
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
}

TEST_F(ACLUtilTest, TakesALineOf8189CharactersWhole) {
  // An entry's own length is 21.
  std::string sddl = "O:BAG:SYD:PAI";
  while (sddl.size() + 21 < 8000) sddl += "(A;;FR;;;S-1-1-10000)";
  std::string line = LineOf("C:\\Data\\a.txt", 0, sddl);
  line.resize(line.size() - 2);
  const std::string blanks(8189 - line.size(), ' ');
  line.insert(line.find(",0,") + 1, blanks);
  ASSERT_EQ(line.size(), 8189U);
  EXPECT_EQ(Restore(line), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), sddl);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\Data\\a.txt>"}));
}

TEST_F(ACLUtilTest, ReadsALastLineWithoutLineEnd) {
  EXPECT_EQ(Restore("\"C:\\Data\\a.txt\",0,\"" + std::string(kSddl) + "\""), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
}

TEST_F(ACLUtilTest, RestoresNothingFromAnEmptyFile) {
  EXPECT_EQ(Restore(""), kRestored);
  EXPECT_EQ(Report(), Lines{kDetected});
}

TEST_F(ACLUtilTest, TakesAnEmptyLineForAnEntryWithoutAPath) {
  EXPECT_EQ(Restore("\r\n" + LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  const Lines report = Report();
  ASSERT_EQ(report.size(), 4U);
  EXPECT_EQ(report[1], "Restoring ACL of: <>");
  EXPECT_TRUE(report[2].starts_with("ERROR writing SD to <>: ")) << report[2];
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
}

TEST_F(ACLUtilTest, TakesAUtf16FileForAnsiText) {
  const std::string before = SddlOf("C:\\Data\\a.txt");
  std::string content = "\xFF\xFE";
  for (const char c : LineOf("C:\\Data\\a.txt", 0, kSddl)) content += {c, '\0'};
  EXPECT_EQ(Restore(content), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), before);
  const Lines report = Report();
  ASSERT_GE(report.size(), 2U);
  EXPECT_EQ(report[0], kDetected);
  // Up to the first zero; the quote is not in front.
  EXPECT_EQ(report[1], "Restoring ACL of: <\xFF\xFE>");
}

TEST_F(ACLUtilTest, StopsAtACtrlZ) {
  EXPECT_EQ(Restore("\x1A" + LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  EXPECT_EQ(Report(), Lines{kDetected});
}

struct BadLine {
  const char* name;
  std::string line;
};

void PrintTo(const BadLine& row, std::ostream* stream) {
  *stream << testing::PrintToString(row.line);
}

class WrongLine : public ACLUtilTest, public testing::WithParamInterface<BadLine> {};

TEST_P(WrongLine, FailsAndTheRestIsRestored) {
  const std::string before = SddlOf("C:\\Data\\a.txt");
  EXPECT_EQ(Restore(GetParam().line + "\r\n" + LineOf("C:\\Data\\b.txt", 0, kSddl)), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), before);
  EXPECT_EQ(SddlOf("C:\\Data\\b.txt"), kSddl);
  const Lines report = Report();
  ASSERT_EQ(report.size(), 4U);
  EXPECT_TRUE(report[2].starts_with("ERROR")) << report[2];
  EXPECT_EQ(report[3], "Restoring ACL of: <C:\\Data\\b.txt>");
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Lines, WrongLine,
    testing::Values(
        BadLine{"Text", "nothing that parses"},
        BadLine{"WithoutSeparators", "\"C:\\Data\\a.txt;32;D:P(A;;FA;;;BA)\""},
        BadLine{"WrongDescriptor", "\"C:\\Data\\a.txt\",0,\"D:P(A;;FA;;;BA\""},
        BadLine{"UnknownAccount", "\"C:\\Data\\a.txt\",0,\"O:QQ\""},
        BadLine{"CutInTheMiddle", "\"C:\\Data\\a.txt\",0,\"O:BAG:SYD:PAI(A;;FA;;"},
        BadLine{"MissingFile", "\"C:\\Data\\none.txt\",0,\"O:BA\""},
        BadLine{"MissingFolder", "\"C:\\None\\a.txt\",0,\"O:BA\""},
        BadLine{"MissingDrive", "\"X:\\a.txt\",0,\"O:BA\""},
        BadLine{"FileInPlaceOfAFolder", "\"C:\\Data\\a.txt\\b.txt\",0,\"O:BA\""},
        BadLine{"TooLongAPath", "\"C:\\" + std::string(1000, 'a') + "\",0,\"O:BA\""},
        BadLine{"InvalidPath", "\"C:\\Data\\*?\",0,\"O:BA\""}, BadLine{"NoPath", "\"\",0,\"O:BA\""},
        BadLine{"NetworkPath", "\"\\\\server\\share\\a\",0,\"O:BA\""},
        BadLine{"DevicePath", "\"\\\\.\\PhysicalDrive0\",0,\"O:BA\""},
        BadLine{"VolumePath", "\"\\\\?\\Volume{0-0}\\a\",0,\"O:BA\""},
        BadLine{"Stream", "\"C:\\Data\\a.txt:b\",0,\"O:BA\""},
        // These seem to name parts that the text does not have; a null list would grant everything.
        BadLine{"DaclInAnAttributeName", "\"C:\\Data\\a.txt\",0,\"S:(RA;;;;;WD;(\"D:\",TI,0,1))\""},
        BadLine{"OwnerInAnAttributeName",
                "\"C:\\Data\\a.txt\",0,\"S:(RA;;;;;WD;(\"O:\",TI,0,1))\""},
        BadLine{"GroupInAnAttributeName",
                "\"C:\\Data\\a.txt\",0,\"S:(RA;;;;;WD;(\"G:\",TI,0,1))\""}),
    [](const testing::TestParamInfo<BadLine>& row) { return row.param.name; });

TEST_F(ACLUtilTest, StandsAnyBytes) {
  std::string content;
  uint32_t state = 12345;
  for (int i = 0; i < 200'000; ++i) {
    state = state * 1664525 + 1013904223;
    constexpr char kLikely[] = "\",\r\n:;()DSOGPA\\C0\0x1";
    content += state >> 31 != 0 ? kLikely[(state >> 20) % (sizeof(kLikely) - 1)]
                                : static_cast<char>(state >> 20 & 0xFF);
  }
  std::erase(content, '\x1A');  // the end of a text
  const int blocks = simulator::LiveLocalBlocks();
  EXPECT_EQ(Restore(content + "\r\n" + LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  EXPECT_EQ(SddlOf("C:\\Data\\a.txt"), kSddl);
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks);
}

// Files.

TEST_F(ACLUtilTest, Is33WithoutAFile) {
  EXPECT_EQ(RestoreFile("", {.with_stream = false}), kNoInputFile);
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"), Lines{});
}

TEST_F(ACLUtilTest, Is34WhenTheFileIsMissing) {
  EXPECT_EQ(RestoreFile("C:\\none.dat", {}), kInputFileUnreadable);
  EXPECT_EQ(Report(), Lines{});
}

TEST_F(ACLUtilTest, Is34WhenTheFileIsAFolder) {
  EXPECT_EQ(RestoreFile("C:\\Data", {}), kInputFileUnreadable);
}

TEST_F(ACLUtilTest, Is34WhenTheFileCannotBeOpenedAgain) {
  server_.calls().FailNext("_open", EACCES, 2);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl), {.with_stream = false}),
            kInputFileUnreadable);
}

// The report's own stream is opened first.
TEST_F(ACLUtilTest, ReportsTheFileOnceItCouldBeOpened) {
  server_.calls().FailNext("_open", EACCES, 3);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl)), kInputFileUnreadable);
  EXPECT_EQ(Report(), Lines{kDetected});
}

TEST_F(ACLUtilTest, Is34WhenTheFileCannotBeReadToItsEnd) {
  server_.calls().FailNext("_read", EIO);
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl)), kInputFileUnreadable);
}

TEST_F(ACLUtilTest, OpensTheFileInBinaryAndThenInTextMode) {
  EXPECT_EQ(Restore("", {.with_stream = false}), kRestored);
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"),
            (Lines{"\"C:\\acl.dat\", \"rb\"", "\"C:\\acl.dat\", \"rt\""}));
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

TEST_F(ACLUtilTest, ReportsNothingWithoutAStream) {
  EXPECT_EQ(Restore(LineOf("C:\\none", 0, kSddl), {.with_stream = false}), kRestored);
  EXPECT_FALSE(server_.files().Exists("C:\\report.txt"));
  EXPECT_EQ(server_.calls().ArgumentsOf("_write"), Lines{});
}

TEST_F(ACLUtilTest, ClosesTheReport) {
  EXPECT_EQ(Restore(""), kRestored);
  // The file, twice, and the report.
  EXPECT_EQ(server_.calls().ArgumentsOf("_close").size(), 3U);
}

TEST_F(ACLUtilTest, AsksForTheSizesWithoutABuffer) {
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  const Lines sizes = server_.calls().ArgumentsOf("MakeAbsoluteSD");
  ASSERT_EQ(sizes.size(), 2U);
  EXPECT_EQ(sizes[0], "0, 0, 0, 0, 0");
}

// They stand in the log.
TEST(ACLUtilResult, HasAFixedCodeForEachFailure) {
  EXPECT_EQ(kRestored, 0);
  EXPECT_EQ(kWriteFailed, 25);
  EXPECT_EQ(kConvertFailed, 27);
  EXPECT_EQ(kNoInputFile, 33);
  EXPECT_EQ(kInputFileUnreadable, 34);
}

TEST_F(ACLUtilTest, KeepsTheObjectsPathInVerbatimForm) {
  ACLUtil engine;
  for (const auto& [path, kept] : std::vector<std::pair<std::string, std::string>>{
           {"D:\\", "\\\\?\\D:\\"},
           {"\\\\?\\D:\\", "\\\\?\\D:\\"},
           {"\\\\server\\share\\", "\\\\?\\\\\\server\\share\\"},
           {"", "\\\\?\\"}}) {
    engine.SetObjectPath(path);
    EXPECT_EQ(engine.object_path(), kept);
  }
}

TEST_F(ACLUtilTest, FlushesEveryLineOfTheReport) {
  EXPECT_EQ(Restore(LineOf("C:\\Data\\a.txt", 0, kSddl)), kRestored);
  EXPECT_EQ(server_.calls().ArgumentsOf("_write").size(), 2U);
}

}  // namespace
}  // namespace acl
