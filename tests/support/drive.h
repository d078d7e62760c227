// A drive on which a test may write backup information.
#ifndef TESTS_SUPPORT_DRIVE_H_
#define TESTS_SUPPORT_DRIVE_H_

#include <string>

namespace tests {

// In native builds, the drive is a new volume of the existing server. On Windows, it is the
// system's own drive, because Wine cannot assign a folder a letter that its file functions find. An
// existing folder "vantoro_prepare" on that drive is not changed and fails the test. The test's own
// folder is removed after the test.
class Drive {
 public:
  Drive();
  ~Drive();
  Drive(const Drive&) = delete;
  Drive& operator=(const Drive&) = delete;

  // In lower case.
  char letter() const { return letter_; }
  // "q:\".
  std::string Root() const { return std::string(1, letter_) + ":\\"; }

 private:
  char letter_ = 'q';
  bool is_free_ = true;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_DRIVE_H_
