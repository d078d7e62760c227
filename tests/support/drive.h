// A drive whose backup information a test may write.
#ifndef TESTS_SUPPORT_DRIVE_H_
#define TESTS_SUPPORT_DRIVE_H_

#include <string>

namespace tests {

// Natively a fresh volume of the standing server. On Windows the system's own drive: Wine gives a
// folder no letter that its file calls find. There a folder "vantoro_prepare" that is there already
// is left alone and fails the test; the test's own is removed behind it.
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
