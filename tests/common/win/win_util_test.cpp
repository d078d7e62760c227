#include "common/win/win_util.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "support/host.h"
#include "support/recording_logger.h"

namespace common::win {
namespace {

class WinUtilHost : public tests::HostTest {};

TEST_F(WinUtilHost, NamesThePlatformOfThisMachine) {
  tests::RecordingLogger logger;
  WinUtil tools("", "", "");
  tools.SetLogger(&logger);
  std::string name = "before";
  EXPECT_TRUE(tools.GetOSPlatform(name));
  EXPECT_TRUE(name == "Windows Server 2003" || name == "Windows Server 2008" ||
              name == "Windows Server 2012" || name == "Windows Server 2016")
      << name;
  EXPECT_TRUE(logger.Lines().empty());
}

TEST_F(WinUtilHost, HasAVirtualOperationButNoVirtualDestructor) {
  EXPECT_TRUE(std::is_polymorphic_v<WinUtil>);
  EXPECT_FALSE(std::has_virtual_destructor_v<WinUtil>);
}

}  // namespace
}  // namespace common::win
