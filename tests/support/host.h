// What a test that runs on both hosts needs of the host. Natively each test stands on a bare
// simulated server of its own; on Windows on the real thing.
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

  // A fresh, empty folder on the host's disk, without a final backslash. Gone after the test.
  const std::string& Folder() const { return folder_; }
  // `name` in that folder.
  std::string PathOf(const std::string& name) const { return folder_ + "\\" + name; }

  // Bytes as they lie on the disk.
  static void WriteBytes(const std::string& path, const std::string& bytes);
  static std::string ReadBytes(const std::string& path);  // empty when it is not there
  static void MakeFolder(const std::string& path);
  static bool Exists(const std::string& path);

 private:
  struct Host;
  std::unique_ptr<Host> host_;
  std::string folder_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_HOST_H_
