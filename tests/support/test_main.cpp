// The entry point of every test program: GoogleTest's, and at the end a line for each test that
// failed, with the command that runs it alone.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <utility>

namespace {

class FailedTests : public testing::EmptyTestEventListener {
 public:
  explicit FailedTests(std::string program) : program_(std::move(program)) {}

  void OnTestProgramEnd(const testing::UnitTest& program) override {
    for (int i = 0; i < program.total_test_suite_count(); ++i) {
      const testing::TestSuite& suite = *program.GetTestSuite(i);
      for (int j = 0; j < suite.total_test_count(); ++j) {
        const testing::TestInfo& test = *suite.GetTestInfo(j);
        if (test.result()->Passed() || test.result()->Skipped()) continue;
        if (!test.should_run()) continue;
        std::printf("Run it alone: %s --gtest_filter=%s.%s\n", program_.c_str(), suite.name(),
                    test.name());
      }
    }
  }

 private:
  const std::string program_;
};

}  // namespace

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
#ifdef TEST_COMMAND
  const std::string program = TEST_COMMAND;
#else
  const std::string program = argv[0];
#endif
  testing::UnitTest::GetInstance()->listeners().Append(new FailedTests(program));
  return RUN_ALL_TESTS();
}
