#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "common/win/win_util.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"
#include "support/test_names.h"

namespace common::win {
namespace {

using Lines = std::vector<std::string>;

struct PlatformCase {
  DWORD major;
  DWORD minor;
  const char* name;
};

std::ostream& operator<<(std::ostream& out, const PlatformCase& test) {
  return out << "version " << test.major << "." << test.minor;
}

class OSPlatform : public testing::TestWithParam<PlatformCase> {
 protected:
  OSPlatform() { tools_.SetLogger(&logger_); }

  simulator::Server server_;
  tests::RecordingLogger logger_;
  WinUtil tools_{"", "", ""};
};

TEST_P(OSPlatform, IsNamedByTheVersion) {
  server_.system().major_version = GetParam().major;
  server_.system().minor_version = GetParam().minor;
  std::string name = "before";
  EXPECT_TRUE(tools_.GetOSPlatform(name));
  EXPECT_EQ(name, GetParam().name);
  EXPECT_EQ(logger_.Lines(), Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Versions, OSPlatform,
    testing::Values(
        PlatformCase{0, 0, "Windows Server 2003"}, PlatformCase{4, 90, "Windows Server 2003"},
        PlatformCase{5, 0, "Windows Server 2003"}, PlatformCase{5, 2, "Windows Server 2003"},
        PlatformCase{6, 0, "Windows Server 2008"}, PlatformCase{6, 1, "Windows Server 2008"},
        PlatformCase{6, 2, "Windows Server 2012"}, PlatformCase{6, 3, "Windows Server 2012"},
        PlatformCase{6, 4, "Windows Server 2012"}, PlatformCase{7, 0, "Windows Server 2012"},
        PlatformCase{8, 1, "Windows Server 2012"}, PlatformCase{9, 9, "Windows Server 2012"},
        PlatformCase{10, 0, "Windows Server 2016"}, PlatformCase{10, 1, "Windows Server 2016"},
        PlatformCase{11, 0, "Windows Server 2016"},
        PlatformCase{0xFFFFFFFF, 0xFFFFFFFF, "Windows Server 2016"},
        PlatformCase{6, 0xFFFFFFFF, "Windows Server 2012"}),
    tests::NamedAsPrinted());

using UnknownPlatform = OSPlatform;

TEST_F(UnknownPlatform, LeavesTheNameEmptyAndSaysWhy) {
  server_.calls().FailNext("GetVersionExA", ERROR_NOT_SUPPORTED);
  std::string name = "before";
  EXPECT_FALSE(tools_.GetOSPlatform(name));
  EXPECT_EQ(name, "");
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::GetOSPlatform GetVersionExA Failed: "
                                   "Last Error: [50] The request is not supported.\r\n"});
}

TEST_F(UnknownPlatform, AsksWithTheExtendedRecord) {
  std::string name;
  EXPECT_TRUE(tools_.GetOSPlatform(name));
  EXPECT_EQ(server_.calls().ArgumentsOf("GetVersionExA"), Lines{"156"});
}

}  // namespace
}  // namespace common::win
