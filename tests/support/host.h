// The host of a test that runs on both hosts. In native builds each test has a bare simulated
// server of its own; on Windows it uses the real system.
#ifndef TESTS_SUPPORT_HOST_H_
#define TESTS_SUPPORT_HOST_H_

#include <windows.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tests {

class HostTest : public testing::Test {
 protected:
  HostTest();
  ~HostTest() override;

  // The module that holds the program's resources.
  static HINSTANCE Program();

  // Returns a new, empty folder on the host's disk, without a trailing backslash. It is removed
  // after the test.
  const std::string& Folder() const { return folder_; }
  // Returns the path of `name` in that folder.
  std::string PathOf(const std::string& name) const { return folder_ + "\\" + name; }

  // Write and read unchanged bytes.
  static void WriteBytes(const std::string& path, const std::string& bytes);
  static std::string ReadBytes(const std::string& path);  // empty if it does not exist
  static void MakeFolder(const std::string& path);
  static bool Exists(const std::string& path);

 private:
  struct Host;
  std::unique_ptr<Host> host_;
  std::string folder_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_HOST_H_
