#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/win/win_util.h"
#include "support/host.h"
#include "support/recording_logger.h"

namespace common::win {
namespace {

using Lines = std::vector<std::string>;

// Scripts of remarks alone: where there is a disk tool, it does nothing.
class ScriptFile : public tests::HostTest {
 protected:
  ScriptFile() { tools_.SetLogger(&logger_); }

  // The bytes of the script file behind `script`.
  std::string BytesOf(const std::string& script) {
    MakeFolder(PathOf("bin"));
    std::string output;
    static_cast<void>(tools_.RunScript("Remark", script, output));
    return ReadBytes(PathOf("bin\\Remark.script.1"));
  }

  tests::RecordingLogger logger_;
  WinUtil tools_{Folder(), "second", "third"};
};

TEST_F(ScriptFile, HasEachLineFeedTurnedIntoCRLF) {
  EXPECT_EQ(BytesOf("rem 1\r\nrem 2\nrem 3\r\n"), "rem 1\r\r\nrem 2\r\nrem 3\r\r\n");
}

TEST_F(ScriptFile, KeepsATextWithoutALineEnd) { EXPECT_EQ(BytesOf("rem x "), "rem x "); }

TEST_F(ScriptFile, MayBeEmpty) {
  BytesOf("rem before");
  EXPECT_EQ(BytesOf(""), "");
  EXPECT_TRUE(Exists(PathOf("bin\\Remark.script.1")));
}

TEST_F(ScriptFile, IsOverwrittenByTheNextRun) {
  BytesOf("rem a long text before");
  EXPECT_EQ(BytesOf("rem new"), "rem new");
}

TEST_F(ScriptFile, HoldsAllBytesOfTheText) {
  const std::string text("rem \0\x1a\xff\r x", 10);
  EXPECT_EQ(BytesOf(text), text);
}

TEST_F(ScriptFile, IsNotWrittenWithoutItsFolder) {
  std::string output = "before";
  EXPECT_EQ(tools_.RunScript("Remark", "rem", output), 1U);
  EXPECT_EQ(output, "before");
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::RunScript Create Remark  Step1 Failed."});
  EXPECT_FALSE(Exists(PathOf("bin")));
}

TEST_F(ScriptFile, IsNotWrittenOverAFolder) {
  MakeFolder(PathOf("bin"));
  MakeFolder(PathOf("bin\\Remark.script.1"));
  std::string output = "before";
  EXPECT_EQ(tools_.RunScript("Remark", "rem", output), 1U);
  EXPECT_EQ(output, "before");
  EXPECT_EQ(logger_.Lines(), Lines{"ErrorOut: WinUtil::RunScript Create Remark  Step1 Failed."});
}

}  // namespace
}  // namespace common::win
