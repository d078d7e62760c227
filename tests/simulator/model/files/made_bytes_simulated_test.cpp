#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

// "0123...": as many digits as asked for.
MakeBytes Digits(uint64_t count) {
  return [count](uint64_t offset, char* buffer, size_t size) -> size_t {
    const size_t left = static_cast<size_t>(count - std::min(count, offset));
    const size_t made = std::min(size, left);
    for (size_t i = 0; i < made; ++i) buffer[i] = static_cast<char>('0' + (offset + i) % 10);
    return made;
  };
}

class MadeBytes : public testing::Test {
 protected:
  std::shared_ptr<OpenFile> Open(const std::string& path) {
    std::shared_ptr<OpenFile> file;
    EXPECT_EQ(files_.Open(path, {.read = true}, &file), DWORD{ERROR_SUCCESS});
    return file;
  }
  static std::string Read(OpenFile& file, size_t size) {
    std::string text(size, '\0');
    size_t read = 0;
    EXPECT_EQ(file.Read(text.data(), size, &read), DWORD{ERROR_SUCCESS});
    return text.substr(0, read);
  }

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(MadeBytes, AreReadFromTheFilesPositionOn) {
  files_.WriteMade("C:\\a", Digits(12));
  const auto file = Open("C:\\a");
  EXPECT_EQ(Read(*file, 7), "0123456");
  EXPECT_EQ(Read(*file, 7), "78901");
  EXPECT_EQ(Read(*file, 7), "");
}

TEST_F(MadeBytes, CanBeSteppedBackInto) {
  files_.WriteMade("C:\\a", Digits(12));
  const auto file = Open("C:\\a");
  Read(*file, 3);
  file->StepBack();
  EXPECT_EQ(Read(*file, 3), "234");
}

TEST_F(MadeBytes, GiveWayToThoseThatAreWrittenLater) {
  files_.WriteMade("C:\\a", Digits(12));
  files_.Write("C:\\a", "x");
  EXPECT_EQ(Read(*Open("C:\\a"), 7), "x");
  EXPECT_EQ(files_.Read("C:\\a"), "x");
}

TEST_F(MadeBytes, TakeThePlaceOfThoseThatWereThere) {
  files_.Write("C:\\a", "longer than made");
  files_.WriteMade("C:\\a", Digits(3));
  EXPECT_EQ(Read(*Open("C:\\a"), 7), "012");
}

TEST(MadeBytesDeathTest, AreNotWritten) {
  Server server;
  server.file_system().WriteMade("C:\\a", Digits(12));
  std::shared_ptr<OpenFile> file;
  EXPECT_DEATH(server.file_system().Open("C:\\a", {.write = true}, &file),
               "writing to a file that makes");
}

TEST(MadeBytesDeathTest, AreNotReadAsAWhole) {
  Server server;
  server.file_system().WriteMade("C:\\a", Digits(12));
  EXPECT_DEATH(static_cast<void>(server.files().Read("C:\\a")), "all the bytes of a file");
}

}  // namespace
}  // namespace simulator
