#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "simulator/model/files/files.h"
#include "simulator/model/files/text_file.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

class TextFileTest : public testing::Test {
 protected:
  std::shared_ptr<OpenFile> Open(const OpenMode& mode) {
    std::shared_ptr<OpenFile> file;
    EXPECT_EQ(server_.file_system().Open("C:\\a.txt", mode, &file), DWORD{ERROR_SUCCESS});
    return file;
  }

  // What is read of a file of these bytes, `chunk` characters at a time.
  std::string ReadBack(const std::string& bytes, size_t chunk = 100,
                       Translation translation = Translation::kText) {
    server_.files().Write("C:\\a.txt", bytes);
    TextFile file(Open({.read = true}), translation, false);
    std::string text;
    std::string buffer(chunk, '\0');
    for (size_t read = 1; read > 0; text.append(buffer, 0, read)) {
      EXPECT_EQ(file.Read(buffer.data(), chunk, &read), DWORD{ERROR_SUCCESS});
    }
    return text;
  }

  // The bytes that become of the text.
  std::string Written(const std::string& text, Translation translation = Translation::kText) {
    TextFile file(Open({.write = true, .creation = Creation::kCreateAlways}), translation, false);
    size_t written = 0;
    EXPECT_EQ(file.Write(text, &written), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(written, text.size());
    return server_.files().Read("C:\\a.txt").value_or("missing");
  }

  Server server_;
};

TEST_F(TextFileTest, ReadsEachPairOfCrAndLfAsLf) { EXPECT_EQ(ReadBack("a\r\n\r\nb"), "a\n\nb"); }

TEST_F(TextFileTest, ReadsALoneLfAsItIs) { EXPECT_EQ(ReadBack("a\nb"), "a\nb"); }

TEST_F(TextFileTest, KeepsALoneCr) { EXPECT_EQ(ReadBack("a\rb\r\r\nc\r"), "a\rb\r\nc\r"); }

TEST_F(TextFileTest, JoinsAPairTornBetweenTwoReads) {
  for (size_t chunk = 1; chunk < 8; ++chunk) {
    EXPECT_EQ(ReadBack("ab\r\ncd\r\re\r\n\r", chunk), "ab\ncd\r\re\n\r") << chunk;
  }
}

TEST_F(TextFileTest, EndsAtCtrlZ) {
  EXPECT_EQ(ReadBack("ab\x1A"
                     "cd",
                     1),
            "ab");
}

TEST_F(TextFileTest, ReadsBinaryAsItLies) {
  EXPECT_EQ(ReadBack("a\r\n\x1A"
                     "b",
                     2, Translation::kBinary),
            "a\r\n\x1A"
            "b");
}

TEST_F(TextFileTest, WritesEachLfAsAPair) { EXPECT_EQ(Written("a\nb\n"), "a\r\nb\r\n"); }

TEST_F(TextFileTest, WritesAPairWithTwoCrs) { EXPECT_EQ(Written("a\r\n"), "a\r\r\n"); }

TEST_F(TextFileTest, WritesBinaryAsItIs) {
  EXPECT_EQ(Written("a\n\r\n", Translation::kBinary), "a\n\r\n");
}

TEST_F(TextFileTest, CountsTheCharactersThatFitOnTheDisk) {
  TextFile file(Open({.write = true, .creation = Creation::kCreateAlways}), Translation::kText,
                false);
  server_.files().SetFreeSpace('C', 4);
  size_t written = 0;
  EXPECT_EQ(file.Write("a\nb\nc", &written), DWORD{ERROR_DISK_FULL});
  EXPECT_EQ(written, 3u);
}

TEST_F(TextFileTest, LosesAFinalCtrlZWhenItIsReadAndWritten) {
  server_.files().Write("C:\\a.txt", "a\x1A");
  TextFile file(Open({.read = true, .write = true}), Translation::kText, true);
  EXPECT_EQ(server_.files().Read("C:\\a.txt"), "a");
}

}  // namespace
}  // namespace simulator
