// The critical-error box about a drive without a medium.
#include <windows.h>

#include <gtest/gtest.h>
#include <io.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <string>
#include <thread>

#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"
#include "support/answers.h"

namespace simulator {
namespace {

class CriticalError : public testing::Test {
 protected:
  CriticalError() {
    Volume empty;
    empty.drive_type = DRIVE_REMOVABLE;
    empty.has_medium = false;
    drive_ = server_.files().AddVolume(std::move(empty));
    server_.files().Mount('E', drive_);
  }

  void Answer(int answer) {
    server_.message_boxes().Answer([answer](const ShownMessageBox&) { return answer; });
  }
  size_t Boxes() { return server_.message_boxes().Shown().size(); }
  static int AccessError() {
    return tests::ErrnoOf([] { return ::_access("e:\\", 0); });
  }
  static DWORD AttributesError(const wchar_t* path) {
    return tests::ErrorOf([path] { return ::GetFileAttributesW(path) != INVALID_FILE_ATTRIBUTES; });
  }

  Server server_;
  std::shared_ptr<Volume> drive_;
};

TEST_F(CriticalError, AsksForAMedium) {
  Answer(IDCANCEL);
  EXPECT_EQ(AccessError(), EACCES);
  ASSERT_EQ(Boxes(), 1U);
  const ShownMessageBox box = server_.message_boxes().Shown()[0];
  EXPECT_EQ(box.caption, "vantoro_restore.exe - No Disk");
  EXPECT_EQ(box.text, "There is no disk in the drive. Please insert a disk into drive E:.");
  EXPECT_EQ(box.type, UINT{MB_CANCELTRYCONTINUE | MB_ICONERROR});
  EXPECT_EQ(box.owner, nullptr);
}

TEST_F(CriticalError, HoldsTheCallingThreadUntilItIsAnswered) {
  std::atomic<bool> is_shown = false;
  std::atomic<bool> is_answered = false;
  std::atomic<bool> was_answered_at_return = false;
  server_.message_boxes().Answer([&](const ShownMessageBox&) {
    is_shown = true;
    is_shown.notify_all();
    is_answered.wait(false);
    return IDCONTINUE;
  });
  std::thread caller([&] {
    EXPECT_EQ(AccessError(), EACCES);
    was_answered_at_return = is_answered.load();
  });
  is_shown.wait(false);
  is_answered = true;
  is_answered.notify_all();
  caller.join();
  EXPECT_TRUE(was_answered_at_return);
}

TEST_F(CriticalError, IsNotShownInTheModeThatFailsAtOnce) {
  ::SetErrorMode(SEM_FAILCRITICALERRORS);
  EXPECT_EQ(AccessError(), EACCES);
  EXPECT_EQ(AttributesError(L"e:\\a"), DWORD{ERROR_NOT_READY});
  EXPECT_EQ(Boxes(), 0U);
}

// That mode is about OpenFile, which the program does not call.
TEST_F(CriticalError, IsShownInTheOtherMode) {
  ::SetErrorMode(SEM_NOOPENFILEERRORBOX);
  Answer(IDCANCEL);
  EXPECT_EQ(AccessError(), EACCES);
  EXPECT_EQ(Boxes(), 1U);
}

TEST_F(CriticalError, IsAnsweredAgainUntilThereIsAMedium) {
  server_.message_boxes().Answer([this](const ShownMessageBox&) {
    if (Boxes() == 1) drive_->has_medium = true;
    return IDTRYAGAIN;
  });
  EXPECT_EQ(AccessError(), 0);
  EXPECT_EQ(Boxes(), 2U);
}

TEST_F(CriticalError, NamesTheDriveThatAJunctionLeadsTo) {
  server_.files().MakeJunction("C:\\Card", "E:\\");
  Answer(IDCANCEL);
  EXPECT_EQ(AttributesError(L"C:\\Card\\a"), DWORD{ERROR_NOT_READY});
  EXPECT_TRUE(server_.message_boxes().Shown().at(0).text.ends_with("into drive E:."));
}

TEST_F(CriticalError, IsNotShownByCallsThatAskNoDrive) {
  EXPECT_EQ(::GetDriveTypeA("e:\\"), UINT{DRIVE_REMOVABLE});
  wchar_t full[MAX_PATH];
  EXPECT_GT(::GetFullPathNameW(L"e:\\a", MAX_PATH, full, nullptr), 0U);
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(CriticalError, IsNotShownForAFaultOfTheSameCode) {
  server_.calls().FailNext("GetFileAttributesW", ERROR_NOT_READY);
  EXPECT_EQ(AttributesError(L"C:\\"), DWORD{ERROR_NOT_READY});
  EXPECT_EQ(Boxes(), 0U);
}

TEST_F(CriticalError, EndsATestThatDoesNotAnswerIt) {
  EXPECT_DEATH(::_access("e:\\", 0),
               "nobody answers the message box: There is no disk in the drive");
  Answer(IDOK);
  EXPECT_DEATH(::_access("e:\\", 0), "does not offer: There is no disk in the drive");
}

TEST_F(CriticalError, IsShownAgainInANewProcess) {
  const auto run = [this](UINT mode) {
    return server_.own_process().Run([mode] {
      const UINT before = ::SetErrorMode(mode);
      return static_cast<int>(before);
    });
  };
  EXPECT_EQ(run(SEM_FAILCRITICALERRORS), 0);
  EXPECT_EQ(run(SEM_FAILCRITICALERRORS), 0);
}

TEST(SetErrorMode, AbortsForAModeThatIsNotHonoured) {
  Server server;
  EXPECT_DEATH(::SetErrorMode(0x0002), "SetErrorMode: such a mode");
}

}  // namespace
}  // namespace simulator
