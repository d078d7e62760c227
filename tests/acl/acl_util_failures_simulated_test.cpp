// What the engine does when calls fail: what it reports, what ends the run, what it leaves behind.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "acl/acl_util.h"
#include "simulator/model/server.h"
#include "support/process.h"
#include "support/progress_simulated.h"
#include "support/simulated_acl_engine.h"

namespace acl {
namespace {

class ACLUtilFailure : public tests::AclEngineTest {
 protected:
  ACLUtilFailure() {
    server_.files().Write("C:\\a", "");
    server_.files().Write("C:\\b", "");
  }

  // Of the lines for C:\a and C:\b, the first of which is to fail.
  int32_t RestoreBoth(const Options& options) {
    return Restore(LineOf("C:\\a", 0, kSddl) + LineOf("C:\\b", 0, kSddl), options);
  }

  bool IsRestored(const std::string& path) { return SddlOf(path) == kSddl; }

  static constexpr char kSddl[] = "O:SYG:SYD:PAI(A;;FA;;;SY)";
};

struct FailingCall {
  const char* name;
  const char* call;
  int occurrence;
};

void PrintTo(const FailingCall& row, std::ostream* stream) { *stream << row.call; }

// The steps from the text to the absolute descriptor.
class Conversion : public ACLUtilFailure, public testing::WithParamInterface<FailingCall> {
 protected:
  void FailFirst(DWORD error) {
    server_.calls().FailNext(GetParam().call, error, GetParam().occurrence);
  }
};

TEST_P(Conversion, FailureIsReportedAndPassedOver) {
  FailFirst(ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(RestoreBoth({.with_administrators = false}), kRestored);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\a>",
                             "ERROR: Restoring ACL of <C:\\a>: 8", "Restoring ACL of: <C:\\b>"}));
  EXPECT_FALSE(IsRestored("C:\\a"));
  EXPECT_TRUE(IsRestored("C:\\b"));
}

TEST_P(Conversion, FailureWithoutACodeWritesNothing) {
  FailFirst(ERROR_SUCCESS);
  const std::string before = SddlOf("C:\\a");
  EXPECT_EQ(RestoreBoth({.with_administrators = false}), kRestored);
  EXPECT_EQ(SddlOf("C:\\a"), before);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\a>",
                             "ERROR: Restoring ACL of <C:\\a>: 0", "Restoring ACL of: <C:\\b>"}));
  EXPECT_TRUE(IsRestored("C:\\b"));
}

TEST_P(Conversion, FailureEndsTheRunWith27WhenErrorsCount) {
  FailFirst(ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false, .with_administrators = false}),
            kConvertFailed);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\a>"}));
  EXPECT_FALSE(IsRestored("C:\\b"));
}

TEST_P(Conversion, FailureReportsItsCodeAsASignedNumber) {
  FailFirst(0x80070005);
  EXPECT_EQ(RestoreBoth({.with_administrators = false}), kRestored);
  EXPECT_EQ(Report()[2], "ERROR: Restoring ACL of <C:\\a>: -2147024891");
}

TEST_P(Conversion, FailureLeavesNoMemoryBehind) {
  const int blocks = simulator::LiveLocalBlocks();
  FailFirst(ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(RestoreBoth({.with_administrators = false}), kRestored);
  EXPECT_EQ(simulator::LiveLocalBlocks(), blocks);
}

constexpr char kConvert[] = "ConvertStringSecurityDescriptorToSecurityDescriptorA";

INSTANTIATE_TEST_SUITE_P(Calls, Conversion,
                         testing::Values(FailingCall{"Text", kConvert, 1},
                                         FailingCall{"Sizes", "MakeAbsoluteSD", 1},
                                         FailingCall{"Parts", "MakeAbsoluteSD", 2},
                                         FailingCall{"FirstBlock", "LocalAlloc", 1},
                                         FailingCall{"SecondBlock", "LocalAlloc", 2},
                                         FailingCall{"ThirdBlock", "LocalAlloc", 3},
                                         FailingCall{"FourthBlock", "LocalAlloc", 4},
                                         FailingCall{"FifthBlock", "LocalAlloc", 5}),
                         [](const testing::TestParamInfo<FailingCall>& row) {
                           return row.param.name;
                         });

// The engine knows a size by this failure alone.
TEST_F(ACLUtilFailure, OfTheSizesIsNoneWhenTheBufferIsInsufficient) {
  server_.calls().FailNext("MakeAbsoluteSD", ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(RestoreBoth({}), kRestored);
  EXPECT_TRUE(IsRestored("C:\\b"));
}

// Writing.

constexpr char kWrite[] = "SetNamedSecurityInfoA";

TEST_F(ACLUtilFailure, ToWriteIsReportedAndPassedOver) {
  server_.calls().FailNext(kWrite, ERROR_SHARING_VIOLATION);
  EXPECT_EQ(RestoreBoth({}), kRestored);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\a>",
                             "ERROR writing SD to <C:\\a>: 32", "Restoring ACL of: <C:\\b>"}));
  EXPECT_TRUE(IsRestored("C:\\b"));
  EXPECT_EQ(server_.calls().ArgumentsOf(kWrite).size(), 2U);
}

TEST_F(ACLUtilFailure, ToWriteEndsTheRunWith25WhenErrorsCount) {
  server_.calls().FailNext(kWrite, ERROR_SHARING_VIOLATION);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kWriteFailed);
  EXPECT_EQ(Report(),
            (Lines{kDetected, "Restoring ACL of: <C:\\a>", "ERROR writing SD to <C:\\a>: 32"}));
}

TEST_F(ACLUtilFailure, ToFindTheFileIsAlwaysPassedOver) {
  server_.calls().FailNext(kWrite, ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kRestored);
  EXPECT_EQ(Report()[2], "ERROR writing SD to <C:\\a>: 2");
  EXPECT_TRUE(IsRestored("C:\\b"));
}

TEST_F(ACLUtilFailure, ToFindThePathIsNot) {
  server_.calls().FailNext(kWrite, ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kWriteFailed);
  EXPECT_EQ(Report().back(), "ERROR writing SD to <C:\\a>: 3");
}

TEST_F(ACLUtilFailure, ForWantOfAccessIsAlwaysPassedOver) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false, .with_administrators = false}), kRestored);
  EXPECT_EQ(Report()[2], "ERROR writing SD to <C:\\a>: 5");
  EXPECT_EQ(server_.calls().ArgumentsOf(kWrite).size(), 2U);
  EXPECT_TRUE(IsRestored("C:\\b"));
}

// A refusal makes the Administrators the owner, and the write is tried once more.

TEST_F(ACLUtilFailure, ForWantOfAccessIsTriedAgainAsOwner) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreBoth({}), kRestored);
  EXPECT_TRUE(IsRestored("C:\\a"));
  EXPECT_TRUE(IsRestored("C:\\b"));
  const Lines calls = server_.calls().ArgumentsOf(kWrite);
  ASSERT_EQ(calls.size(), 4U);
  // Owner, group and protected DACL with all the parts, the owner alone, all again.
  EXPECT_TRUE(calls[0].starts_with("\"C:\\a\", 2147483655, 0x")) << calls[0];
  EXPECT_TRUE(calls[1].starts_with("\"C:\\a\", 1, 0x")) << calls[1];
  EXPECT_TRUE(calls[1].ends_with(", null, null, null")) << calls[1];
  EXPECT_EQ(calls[2], calls[0]);
}

TEST_F(ACLUtilFailure, ThatIsMendedStillMarksTheLine) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreBoth({}), kRestored);
  EXPECT_EQ(Report(), (Lines{kDetected, "Restoring ACL of: <C:\\a>",
                             "ERROR writing SD to <C:\\a>: 0", "Restoring ACL of: <C:\\b>"}));
}

TEST_F(ACLUtilFailure, ThatIsMendedStillEndsTheRunWith25WhenErrorsCount) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kWriteFailed);
  EXPECT_TRUE(IsRestored("C:\\a"));
  EXPECT_FALSE(IsRestored("C:\\b"));
}

TEST_F(ACLUtilFailure, OfTheNewOwnerIsTheFinalCode) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  server_.calls().FailNext(kWrite, ERROR_INVALID_OWNER, 2);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kWriteFailed);
  EXPECT_EQ(Report().back(), "ERROR writing SD to <C:\\a>: 1307");
  EXPECT_EQ(server_.calls().ArgumentsOf(kWrite).size(), 2U);
}

TEST_F(ACLUtilFailure, OfTheSecondWriteIsTheFinalCode) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  server_.calls().FailNext(kWrite, ERROR_PRIVILEGE_NOT_HELD, 3);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kWriteFailed);
  EXPECT_EQ(Report().back(), "ERROR writing SD to <C:\\a>: 1314");
}

TEST_F(ACLUtilFailure, OfTheSecondWriteLeavesTheObjectToTheAdministrators) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  server_.calls().FailNext(kWrite, ERROR_PRIVILEGE_NOT_HELD, 3);
  tests::Secure(server_, "C:\\a", "O:BUG:BUD:PAI(A;;FA;;;BU)");
  EXPECT_EQ(RestoreBoth({}), kRestored);
  EXPECT_EQ(SddlOf("C:\\a"), "O:BAG:BUD:PAI(A;;FA;;;BU)");
}

TEST_F(ACLUtilFailure, OfTheSecondWriteForWantOfAccessIsPassedOver) {
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED);
  server_.calls().FailNext(kWrite, ERROR_ACCESS_DENIED, 3);
  EXPECT_EQ(RestoreBoth({.continue_on_error = false}), kRestored);
  EXPECT_EQ(Report()[2], "ERROR writing SD to <C:\\a>: 5");
  EXPECT_TRUE(IsRestored("C:\\b"));
}

// Whatever fails, the run ends with a result that it has, and leaves nothing.
TEST(ACLUtilFailures, OfAnyCallLeaveNothingBehind) {
  for (int number = 1;; ++number) {
    const tests::NewProcess process;
    const int blocks = simulator::LiveLocalBlocks();
    simulator::Server server;
    for (const std::string path : {"C:\\a", "C:\\b", "C:\\c"}) server.files().Write(path, "");
    server.files().Write("C:\\acl.dat",
                         "\"C:\\a\",2,\"D:PAI(A;;FA;;;BA)\"\n\"C:\\b\",2,\"D:PAI(A;;FA;;;BA)\"\n"
                         "\"C:\\c\",2,\"D:PAI(A;;FA;;;BA)\"\n");
    server.calls().FailNumber(number, ERROR_ACCESS_DENIED);
    int32_t result = 0;
    {
      ACLUtil engine;
      engine.SetInputFile("C:\\acl.dat");
      result = engine.RestoreFromFile(true, 3, {0, 100});
    }
    ASSERT_TRUE(result == kRestored || result == kInputFileUnreadable) << number;
    const std::vector<simulator::TracedCall> trace = server.calls().Trace();
    const size_t failed = static_cast<size_t>(number) - 1;
    const bool is_free = failed < trace.size() && trace[failed].name == "LocalFree";
    ASSERT_EQ(simulator::LiveLocalBlocks(), blocks + (is_free ? 1 : 0)) << number;
    ASSERT_LE(server.OpenHandles().size(), 1U) << number;  // a token that did not close
    int restored = 0;
    for (const std::string path : {"C:\\a", "C:\\b", "C:\\c"}) {
      restored += tests::SddlOf(server, path).ends_with("D:PAI(A;;FA;;;BA)") ? 1 : 0;
    }
    ASSERT_GE(restored, result == kRestored ? 2 : 0) << number;
    if (server.calls().Count() < number) {
      EXPECT_EQ(restored, 3);
      break;
    }
  }
}

// Progress.

class Progress : public ACLUtilFailure {
 protected:
  static std::string Empty(int lines) { return std::string(static_cast<size_t>(lines), '\n'); }

  tests::ProgressDialog dialog_{server_};
};

TEST_F(Progress, IsToldAtEveryThousandthLine) {
  const Options options{.total_entries = 4000, .range = {10.0, 20.0}};
  EXPECT_EQ(Restore(Empty(2999), options), kRestored);
  EXPECT_EQ(dialog_.Take(), (std::vector<double>{15.0, 20.0}));
}

TEST_F(Progress, IsNotToldBeforeTheThousandthLine) {
  EXPECT_EQ(Restore(Empty(999), {.total_entries = 999}), kRestored);
  EXPECT_EQ(dialog_.Take(), std::vector<double>{});
}

TEST_F(Progress, IsToldBeforeTheLineIsRestored) {
  std::string content;
  for (int line = 1; line < 1000; ++line) content += LineOf("C:\\a", 0, "O:SY");
  EXPECT_EQ(Restore(content + LineOf("C:\\a", 0, "wrong"),
                    {.continue_on_error = false, .total_entries = 1000}),
            kConvertFailed);
  EXPECT_EQ(dialog_.Take(), std::vector<double>{100.0});
}

TEST_F(Progress, GoesBeyondTheRangeWhenThereAreMoreLinesThanEntries) {
  EXPECT_EQ(Restore(Empty(2000), {.total_entries = 500, .range = {0.0, 10.0}}), kRestored);
  EXPECT_EQ(dialog_.Take(), (std::vector<double>{20.0, 40.0}));
}

TEST_F(Progress, IsNotFiniteWithoutEntries) {
  EXPECT_EQ(Restore(Empty(1000) + LineOf("C:\\a", 0, kSddl), {.total_entries = 0}), kRestored);
  const std::vector<double> percents = dialog_.Take();
  ASSERT_EQ(percents.size(), 1U);
  EXPECT_FALSE(std::isfinite(percents[0]));
  EXPECT_TRUE(IsRestored("C:\\a"));
}

TEST_F(Progress, IsNoNumberWithoutEntriesAndWithoutASpan) {
  EXPECT_EQ(Restore(Empty(1000), {.total_entries = 0, .range = {5.0, 0.0}}), kRestored);
  const std::vector<double> percents = dialog_.Take();
  ASSERT_EQ(percents.size(), 1U);
  EXPECT_TRUE(std::isnan(percents[0]));
}

}  // namespace
}  // namespace acl
