// Runs in which Wine itself fails, and one in which the program does: a loader takes the place of
// Wine's that fails as often as it is told.
#include "wine/drive/wine_failure.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "wine/tests/wine_case.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

constexpr char kFailure[] =
    "Wine could not run one of its processes (0024:err:virtual:virtual_alloc_first_teb wine: "
    "failed to map the shared user data: c0000018)";
constexpr char kOnceMore[] = "; once more in a fresh prefix\n";

// Fails for the programs that watch a run, until there are as many lines in the file as it may
// fail. Runs everything else with the loader that was found before.
constexpr char kLoader[] = R"sh(#!/bin/sh
folder=$(dirname "$0")
PATH=$FOUND_BEFORE
case "$*" in
  *watch_program*)
    echo start >>"$folder/starts"
    if [ "$(wc -l <"$folder/starts")" -le "$(cat "$folder/failures")" ]; then
      echo '0024:err:virtual:virtual_alloc_first_teb wine: failed to map the shared user data: c0000018' >&2
      exit 1
    fi ;;
esac
exec wine "$@"
)sh";

class FailingWine : public WineCase {
 protected:
  FailingWine() {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    std::ofstream(folder_ / "wine") << kLoader;
    fs::permissions(folder_ / "wine", fs::perms::owner_all);
    ::setenv("FOUND_BEFORE", path_.c_str(), 1);
    ::setenv("PATH", (folder_.string() + ":" + path_).c_str(), 1);
  }
  ~FailingWine() override {
    ::setenv("PATH", path_.c_str(), 1);
    ::unsetenv("FOUND_BEFORE");
    fs::remove_all(folder_);
  }

  void FailStarts(int count) { std::ofstream(folder_ / "failures") << count << "\n"; }
  // Both runs. Returns what is printed meanwhile, and what an exception says.
  std::pair<std::string, std::string> Try() {
    std::string why;
    testing::internal::CaptureStdout();
    try {
      RunBoth(Shipped("letterless_disk"));
    } catch (const std::exception& error) {
      why = error.what();
    }
    return {testing::internal::GetCapturedStdout(), why};
  }
  int Starts() const {
    int count = 0;
    std::ifstream stream(folder_ / "starts");
    for (std::string line; std::getline(stream, line);) ++count;
    return count;
  }

 private:
  const std::string path_ = std::getenv("PATH");
  const fs::path folder_ = PrefixFolder("loader");
};

TEST_F(FailingWine, IsTriedTwiceMoreInAFreshPrefix) {
  FailStarts(2);
  const auto [printed, why] = Try();
  EXPECT_EQ(printed, std::string(kFailure) + kOnceMore + kFailure + kOnceMore);
  EXPECT_EQ(why, "");
  EXPECT_EQ(Starts(), 3);
  ExpectAllTheSame();
}

TEST_F(FailingWine, FailsTheCaseTheThirdTime) {
  FailStarts(3);
  const auto [printed, why] = Try();
  EXPECT_EQ(printed, std::string(kFailure) + kOnceMore + kFailure + kOnceMore);
  EXPECT_EQ(why, kFailure);
  EXPECT_EQ(Starts(), 3);
}

class MissingProgram : public FailingWine {
 protected:
  void PrepareServer() override { fs::remove(server_->ProgramFolder() / "vantoro_restore.exe"); }
};

TEST_F(MissingProgram, FailsTheCaseAtOnce) {
  FailStarts(0);
  const auto [printed, why] = Try();
  EXPECT_EQ(printed, "");
  EXPECT_EQ(why, "the program could not be started: error 2");
  EXPECT_EQ(Starts(), 1);
}

class MissingTool : public FailingWine {
 protected:
  void PrepareServer() override {
    fs::remove(server_->prefix().OnSystemVolume("windows\\system32\\diskpart.exe"));
  }
};

TEST_F(MissingTool, IsADifferenceAtOnce) {
  FailStarts(0);
  const auto [printed, why] = Try();
  EXPECT_EQ(printed, "");
  EXPECT_EQ(why, "");
  EXPECT_EQ(Starts(), 1);
  EXPECT_NE(Masked(server_->Log()), Masked(rehearsed_.log));
  EXPECT_NE(server_->Log().find("Last Error: [2]"), std::string::npos);
}

}  // namespace
}  // namespace tests
