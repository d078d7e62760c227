#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acl/junctions.h"
#include "simulator/model/files/files.h"
#include "simulator/model/server.h"
#include "support/test_names.h"

namespace acl {
namespace {

using Lines = std::vector<std::string>;

constexpr char kList[] = "C:\\junctions.dat";

class JunctionTest : public testing::Test {
 protected:
  JunctionTest() {
    server_.files().MakeDirectories("C:\\Target");
    server_.files().Write("C:\\Target\\inside.txt", "inside");
  }

  // The report, one line a junction.
  std::string Restore(const std::string& list) {
    server_.files().Write(kList, list);
    EXPECT_EQ(RestoreJunctionsFromFile(L"C:\\junctions.dat", L"C:\\report.txt"), 0);
    EXPECT_EQ(server_.OpenHandles(), Lines{});
    return server_.files().Read("C:\\report.txt").value_or("none");
  }

  std::string TargetOf(const std::string& path) {
    return server_.files().JunctionTarget(path).value_or("no junction");
  }

  bool Exists(const std::string& path) { return server_.files().Exists(path); }

  simulator::Server server_;
};

using RestoreJunctionsTest = JunctionTest;
using CreateJunctionTest = JunctionTest;

TEST_F(RestoreJunctionsTest, CreatesWhatIsMissing) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target");
  EXPECT_EQ(server_.files().Read("C:\\Link\\inside.txt"), "inside");
}

TEST_F(RestoreJunctionsTest, LeavesAJunctionThatStandsWhateverItsTarget) {
  server_.files().MakeJunction("C:\\Link", "C:\\Windows");
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Junction Exists!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Windows");
}

TEST_F(RestoreJunctionsTest, CreatesNothingWithoutTheTarget) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Missing\r\n"),
            "Source: C:\\Missing; Junction: C:\\Link; Source Not Exist!\r\n");
  EXPECT_FALSE(Exists("C:\\Link"));
}

TEST_F(RestoreJunctionsTest, ReplacesAFileInTheWay) {
  server_.files().Write("C:\\Link", "in the way");
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target");
}

TEST_F(RestoreJunctionsTest, ReplacesWhatHasNoAttributesToRead) {
  server_.files().Write("C:\\Link", "in the way");
  server_.calls().FailNext("GetFileAttributesW", ERROR_ACCESS_DENIED);
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target");
}

TEST_F(RestoreJunctionsTest, DeletesNothingWhenNothingIsInTheWay) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(server_.calls().ArgumentsOf("DeleteFileA"), Lines{});
}

TEST_F(RestoreJunctionsTest, FailsAtAFileThatCannotBeDeleted) {
  server_.files().Write("C:\\Link", "in the way");
  server_.files().SetAttributes("C:\\Link", FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Failed!\r\n");
  EXPECT_EQ(server_.files().Read("C:\\Link"), "in the way");
}

TEST_F(RestoreJunctionsTest, TurnsAnEmptyFolderIntoAJunction) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target");
}

TEST_F(RestoreJunctionsTest, KeepsAFolderThatIsNotEmpty) {
  server_.files().Write("C:\\Link\\kept.txt", "kept");
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Failed!\r\n");
  EXPECT_EQ(server_.files().Read("C:\\Link\\kept.txt"), "kept");
}

TEST_F(RestoreJunctionsTest, RemovesTheFolderThatItMadeWhenTheJunctionFails) {
  server_.calls().FailNext("DeviceIoControl", ERROR_NOT_SUPPORTED);
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Failed!\r\n");
  EXPECT_FALSE(Exists("C:\\Link"));
}

TEST_F(RestoreJunctionsTest, KeepsAnEmptyFolderThatWasThereWhenTheJunctionFails) {
  server_.files().MakeDirectories("C:\\Link");
  server_.calls().FailNext("DeviceIoControl", ERROR_NOT_SUPPORTED);
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Failed!\r\n");
  EXPECT_TRUE(Exists("C:\\Link"));
  EXPECT_EQ(server_.calls().ArgumentsOf("RemoveDirectoryA"), Lines{});
}

TEST_F(RestoreJunctionsTest, DoesNotMakeTheParentOfAJunction) {
  EXPECT_EQ(Restore("C:\\None\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: C:\\None\\Link; Create Failed!\r\n");
  EXPECT_FALSE(Exists("C:\\None"));
}

TEST_F(RestoreJunctionsTest, TakesAFileForATarget) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\\inside.txt\r\n"),
            "Source: C:\\Target\\inside.txt; Junction: C:\\Link; Create Done!\r\n");
}

TEST_F(RestoreJunctionsTest, ResolvesARelativeTarget) {
  EXPECT_EQ(Restore("C:\\Link;C:/Windows/../Target/\r\n"),
            "Source: C:/Windows/../Target/; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target\\");
}

TEST_F(RestoreJunctionsTest, SkipsAJunctionOntoItself) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Link\r\n"),
            "Source: C:\\Link; Junction: C:\\Link; Source Not Exist!\r\n");
  server_.files().MakeDirectories("C:\\Loop");
  EXPECT_EQ(Restore("C:\\Loop;C:\\Loop\r\nC:\\Link;C:\\Target\r\n"),
            "Source: C:\\Loop; Junction: C:\\Loop; Create Done!\r\n"
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  EXPECT_EQ(Restore("C:\\Loop;C:\\Loop\r\n"),
            "Source: C:\\Loop; Junction: C:\\Loop; Junction Exists!\r\n");
}

TEST_F(RestoreJunctionsTest, MakesJunctionsInJunctions) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target\r\nC:\\Link\\Inner;C:\\Windows\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n"
            "Source: C:\\Windows; Junction: C:\\Link\\Inner; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\Target\\Inner"), "\\??\\C:\\Windows");
}

TEST_F(RestoreJunctionsTest, TakesNamesBeyondAscii) {
  server_.files().MakeDirectories("C:\\数据\\\xF0\x9F\x98\x80");
  EXPECT_EQ(Restore("C:\\链接;C:\\数据\\\xF0\x9F\x98\x80\n"),
            "Source: C:\\数据\\\xF0\x9F\x98\x80; Junction: C:\\链接; Create Done!\r\n");
  EXPECT_EQ(TargetOf("C:\\链接"), "\\??\\C:\\数据\\\xF0\x9F\x98\x80");
}

// The list.

TEST_F(RestoreJunctionsTest, ReadsALastLineWithoutLineEnd) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
}

TEST_F(RestoreJunctionsTest, SkipsLinesThatAreNotOfTwoFields) {
  EXPECT_EQ(Restore("\r\nC:\\Link\r\nC:\\Link;C:\\Target;\\x\r\nC:\\Link;;C:\\Target\r\n"
                    ";\r\n;;;\r\nC:\\Link;\r\n  \r\n"),
            "");
  EXPECT_FALSE(Exists("C:\\Link"));
}

TEST_F(RestoreJunctionsTest, CountsNoFieldBehindATrailingSemicolon) {
  EXPECT_EQ(Restore("C:\\Link;C:\\Target;\r\n"),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
}

TEST_F(RestoreJunctionsTest, FindsNothingAtAnEmptyTarget) {
  EXPECT_EQ(Restore(";;\r\nC:\\Link;;\r\n"),
            "Source: ; Junction: ; Source Not Exist!\r\n"
            "Source: ; Junction: C:\\Link; Source Not Exist!\r\n");
}

TEST_F(RestoreJunctionsTest, FailsForAnEmptyJunction) {
  EXPECT_EQ(Restore(";C:\\Target\r\n"), "Source: C:\\Target; Junction: ; Create Failed!\r\n");
}

TEST_F(RestoreJunctionsTest, NeitherTrimsNorUnquotes) {
  EXPECT_EQ(Restore("\"C:\\Link\";C:\\Target\r\n C:\\Link;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: \"C:\\Link\"; Create Failed!\r\n"
            "Source: C:\\Target; Junction:  C:\\Link; Create Failed!\r\n");
}

TEST_F(RestoreJunctionsTest, UsesALineOf521Characters) {
  // A path longer than the system takes.
  const std::string target = "C:\\Target";
  const std::string junction = "C:\\" + std::string(521 - 4 - target.size(), 'x');
  EXPECT_EQ(Restore(junction + ";" + target + "\r\n"),
            "Source: C:\\Target; Junction: " + junction + "; Create Failed!\r\n");
  EXPECT_EQ(Restore(junction + ";" + target),
            "Source: C:\\Target; Junction: " + junction + "; Create Failed!\r\n");
}

TEST_F(RestoreJunctionsTest, SkipsALongerLineToItsEndAndGoesOn) {
  const std::string target = "C:\\Target";
  const std::string longer = "C:\\" + std::string(522 - 4 - target.size(), 'x') + ";" + target;
  ASSERT_EQ(longer.size(), 522U);
  for (const std::string& line : {longer, longer + ";C:\\Bad;" + std::string(100'000, 'y')}) {
    server_.files().Remove("C:\\Link");
    EXPECT_EQ(Restore(line + "\r\nC:\\Link;C:\\Target\r\n"),
              "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n");
  }
  EXPECT_EQ(Restore(longer), "");
}

TEST_F(RestoreJunctionsTest, EndsALineAtItsFirstZero) {
  EXPECT_EQ(Restore(std::string("C:\\Link;C:\\Target\0;more\r\nC:\\Two;C:\\Target\r\n", 43)),
            "Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n"
            "Source: C:\\Target; Junction: C:\\Two; Create Done!\r\n");
}

TEST_F(RestoreJunctionsTest, TakesNoByteOrderMark) {
  EXPECT_EQ(Restore("\xEF\xBB\xBF"
                    "C:\\Link;C:\\Target\r\nC:\\Two;C:\\Target\r\n"),
            "Source: C:\\Target; Junction: \xEF\xBB\xBF"
            "C:\\Link; Create Failed!\r\n"
            "Source: C:\\Target; Junction: C:\\Two; Create Done!\r\n");
  std::string utf16 = "\xFF\xFE";
  for (const char c : std::string("C:\\Three;C:\\Target\r\n")) utf16 += {c, '\0'};
  EXPECT_EQ(Restore(utf16), "");
}

TEST_F(RestoreJunctionsTest, StandsAnyBytes) {
  std::string list;
  uint32_t state = 4711;
  for (int i = 0; i < 100'000; ++i) {
    state = state * 1664525 + 1013904223;
    constexpr char kLikely[] = "C:\\T;;;\n\r.?*x";
    list += state >> 31 != 0 ? kLikely[(state >> 20) % (sizeof(kLikely) - 1)]
                             : static_cast<char>(state >> 20 & 0xFF);
  }
  std::erase(list, '\x1A');  // the end of a text
  const std::string report = Restore(list + "\nC:\\Link;C:\\Target\n");
  EXPECT_TRUE(report.ends_with("Source: C:\\Target; Junction: C:\\Link; Create Done!\r\n"));
}

TEST_F(RestoreJunctionsTest, IsMinus1WithoutAList) {
  EXPECT_EQ(RestoreJunctions("C:\\", "C:\\none.dat"), -1);
  EXPECT_EQ(RestoreJunctions("C:\\", "C:\\Target"), -1);
  EXPECT_EQ(RestoreJunctionsFromFile(L"", L""), -1);
}

TEST_F(RestoreJunctionsTest, IsMinus1WhenTheReportCannotBeOpened) {
  server_.files().Write(kList, "C:\\Link;C:\\Target\r\n");
  EXPECT_EQ(RestoreJunctionsFromFile(L"C:\\junctions.dat", L"C:\\none\\report.txt"), -1);
  EXPECT_FALSE(Exists("C:\\Link"));
  EXPECT_EQ(server_.OpenHandles(), Lines{});
}

// The stream reads several blocks; what came of the line that the failing one cuts is no line.
TEST_F(RestoreJunctionsTest, UsesNoLineThatAReadErrorCuts) {
  std::string list;
  for (int i = 1000; i < 3000; ++i) list += "C:\\Link" + std::to_string(i) + ";C:\\Target\r\n";
  server_.files().Write(kList, list);
  server_.calls().FailNext("_read", EIO, 2);
  EXPECT_EQ(RestoreJunctionsFromFile(L"C:\\junctions.dat", L""), -1);
  const Lines targets = server_.calls().ArgumentsOf("_access");
  EXPECT_GT(targets.size(), 10U);
  EXPECT_LT(targets.size(), 2000U);
  for (const std::string& target : targets) EXPECT_EQ(target, "\"C:\\Target\", 0");
}

TEST_F(RestoreJunctionsTest, CannotPutAJunctionInPlaceOfItsOwnList) {
  const std::string list = std::string(kList) + ";C:\\Target\r\n";
  EXPECT_EQ(Restore(list),
            std::string("Source: C:\\Target; Junction: ") + kList + "; Create Failed!\r\n");
  EXPECT_EQ(server_.files().Read(kList), list);
}

TEST_F(RestoreJunctionsTest, IsMinus1WhenTheListCannotBeReadToItsEnd) {
  server_.files().Write(kList, "C:\\Link;C:\\Target\r\n");
  server_.calls().FailNext("_read", EIO);
  EXPECT_EQ(RestoreJunctions("C:\\", kList), -1);
  EXPECT_FALSE(Exists("C:\\Link"));
}

TEST_F(RestoreJunctionsTest, IsZeroForAnEmptyList) { EXPECT_EQ(Restore(""), ""); }

TEST_F(RestoreJunctionsTest, TruncatesAnOlderReport) {
  server_.files().Write("C:\\report.txt", "an older and longer report");
  EXPECT_EQ(Restore("C:\\Link;C:\\Missing\n"),
            "Source: C:\\Missing; Junction: C:\\Link; Source Not Exist!\r\n");
}

TEST_F(RestoreJunctionsTest, WritesNoReportUnlessAsked) {
  server_.files().Write(kList, "C:\\Link;C:\\Target\r\n");
  EXPECT_EQ(RestoreJunctions("C:\\", kList), 0);
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\Target");
  EXPECT_EQ(server_.calls().ArgumentsOf("_open"), Lines{"\"C:\\junctions.dat\", \"rt\""});
}

TEST_F(RestoreJunctionsTest, RunsEveryStepInItsOrder) {
  server_.files().Write(kList, "C:\\Link;C:\\Target");
  server_.files().Write("C:\\Link", "");
  EXPECT_EQ(RestoreJunctions("C:\\", kList), 0);
  Lines names;
  for (const simulator::TracedCall& call : server_.calls().Trace()) {
    if (call.name[0] != '_' && call.name != "MultiByteToWideChar") names.push_back(call.name);
  }
  EXPECT_EQ(names, (Lines{"PathFileExistsA", "GetFileAttributesW", "DeleteFileA",
                          "CreateDirectoryA", "GetFullPathNameW", "GetFileAttributesW",
                          "CreateFileW", "DeviceIoControl", "CloseHandle"}));
}

// One junction.

TEST_F(CreateJunctionTest, OpensTheFolderAloneAndItself) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_TRUE(CreateJunction(L"C:\\Link", L"C:\\Target"));
  // GENERIC_READ | GENERIC_WRITE, no sharing, both flags.
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateFileW"),
            Lines{"\"C:\\Link\", 3221225472, 0, 35651584"});
}

TEST_F(CreateJunctionTest, SetsTheReparsePoint) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_TRUE(CreateJunction(L"C:\\Link", L"C:\\Target"));
  const Lines calls = server_.calls().ArgumentsOf("DeviceIoControl");
  ASSERT_EQ(calls.size(), 1U);
  // The name has 13 units: 26 + 12 bytes of data and 8 of the header.
  EXPECT_NE(calls[0].find(", 589988, "), std::string::npos) << calls[0];
  EXPECT_NE(calls[0].find(", 46"), std::string::npos) << calls[0];
  DWORD attributes = 0;
  server_.file_system().Attributes("C:\\Link", &attributes);
  EXPECT_EQ(attributes & 0x410, 0x410U);
}

TEST_F(CreateJunctionTest, NeedsBothPaths) {
  EXPECT_FALSE(CreateJunction(L"", L"C:\\Target"));
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L""));
  EXPECT_EQ(server_.calls().Count(), 0);
}

TEST_F(CreateJunctionTest, NeedsAFolder) {
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\Target"));
  EXPECT_FALSE(CreateJunction(L"C:\\Target\\inside.txt", L"C:\\Target"));
}

TEST_F(CreateJunctionTest, NeedsATarget) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\None"));
  EXPECT_EQ(TargetOf("C:\\Link"), "no junction");
}

TEST_F(CreateJunctionTest, TakesASystemNameAsItIs) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_TRUE(CreateJunction(L"C:\\Link", L"\\??\\C:\\None"));
  EXPECT_EQ(TargetOf("C:\\Link"), "\\??\\C:\\None");
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFullPathNameW"), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFileAttributesW"), Lines{});
}

TEST_F(CreateJunctionTest, TakesAnythingBehindABackslashAndAQuestionMarkAsItIs) {
  server_.files().MakeDirectories("C:\\Link");
  static_cast<void>(CreateJunction(L"C:\\Link", L"\\?x"));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFullPathNameW"), Lines{});
  EXPECT_EQ(server_.calls().ArgumentsOf("DeviceIoControl").size(), 1U);
}

TEST_F(CreateJunctionTest, ResolvesAVerbatimTarget) {
  server_.files().MakeDirectories("C:\\Link");
  static_cast<void>(CreateJunction(L"C:\\Link", L"\\\\?\\C:\\Target"));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFullPathNameW").size(), 1U);
}

TEST_F(CreateJunctionTest, RefusesAFullPathThatIsTooLong) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\" + std::wstring(1021, L'a')));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFileAttributesW"), Lines{});
}

TEST_F(CreateJunctionTest, RefusesASubstituteNameThatIsTooLong) {
  server_.files().MakeDirectories("C:\\Link");
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"\\??\\C:\\" + std::wstring(20'000, L'a')));
  EXPECT_EQ(server_.calls().ArgumentsOf("CreateFileW"), Lines{});
  EXPECT_EQ(TargetOf("C:\\Link"), "no junction");
}

TEST_F(CreateJunctionTest, AsksNoFurtherWithoutAFullPath) {
  server_.files().MakeDirectories("C:\\Link");
  server_.calls().FailNext("GetFullPathNameW", ERROR_INVALID_NAME);
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\Target"));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetFileAttributesW"), Lines{});
}

class FailingStep : public JunctionTest, public testing::WithParamInterface<std::string> {};

TEST_P(FailingStep, IsFalseAndLeavesNothingOpen) {
  server_.files().MakeDirectories("C:\\Link");
  server_.calls().FailNext(GetParam(), ERROR_ACCESS_DENIED);
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\Target"));
  EXPECT_EQ(server_.OpenHandles(), Lines{});
  EXPECT_EQ(TargetOf("C:\\Link"), "no junction");
}

INSTANTIATE_TEST_SUITE_P(Calls, FailingStep,
                         testing::Values("GetFullPathNameW", "GetFileAttributesW", "CreateFileW",
                                         "DeviceIoControl"),
                         tests::NamedAsPrinted());

}  // namespace
}  // namespace acl
