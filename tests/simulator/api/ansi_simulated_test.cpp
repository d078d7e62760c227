// The A calls convert between the server's ANSI code page and what the server has.
#include <windows.h>

#include <aclapi.h>
#include <gtest/gtest.h>
#include <io.h>
#include <shlobj.h>
#include <simulated_fstream.h>

#include <array>
#include <string>
#include <vector>

#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/files.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"

namespace simulator {
namespace {

// U+904B in code page 936, whose second byte is a backslash.
constexpr char kYun[] = "\xDF\\";

class AnsiCalls : public testing::Test {
 protected:
  AnsiCalls() {
    server_.system().ansi_code_page = 936;
    server_.system().language = 2052;
    server_.files().Write("C:\\運\\a.txt", "x");
  }

  const std::string folder_ = std::string("C:\\") + kYun;
  Server server_;
};

TEST_F(AnsiCalls, GiveThePathsOfTheSystem) {
  server_.system().program_path = "C:\\運\\p.exe";
  server_.system().temp_directory = "C:\\運";
  server_.system().system_directory = "C:\\運\\s";
  server_.system().common_startup_directory = "C:\\運";
  std::array<char, MAX_PATH> buffer{};
  EXPECT_EQ(::GetModuleFileNameA(nullptr, buffer.data(), MAX_PATH), 11u);
  EXPECT_EQ(buffer.data(), folder_ + "\\p.exe");
  EXPECT_EQ(::GetTempPathA(MAX_PATH, buffer.data()), 6u);
  EXPECT_EQ(buffer.data(), folder_ + "\\");
  EXPECT_EQ(::GetSystemDirectoryA(buffer.data(), MAX_PATH), 7u);
  EXPECT_EQ(buffer.data(), folder_ + "\\s");
  EXPECT_TRUE(::SHGetSpecialFolderPathA(nullptr, buffer.data(), CSIDL_COMMON_STARTUP, FALSE));
  EXPECT_EQ(buffer.data(), folder_);
}

TEST_F(AnsiCalls, OpenStreams) {
  FileStream stream;
  stream.open(folder_ + "\\b.txt", std::ios_base::out);
  stream << kYun;
  stream.close();
  EXPECT_EQ(server_.files().Read("C:\\運\\b.txt"), kYun);
}

TEST_F(AnsiCalls, SetDescriptors) {
  tests::Secure(server_, "C:\\運\\a.txt", "O:BAG:SYD:PAI(A;;FA;;;BA)");
  std::string path = folder_ + "\\a.txt";
  EXPECT_EQ(::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT,
                                    DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                    nullptr, nullptr, nullptr, nullptr),
            DWORD{ERROR_SUCCESS});
  EXPECT_FALSE(server_.files().DescriptorOf("C:\\運\\a.txt")->dacl);
}

TEST_F(AnsiCalls, CountUnitsOfUtf16InTooLongPaths) {
  // 260 units of 513 bytes.
  std::string path = "C:\\" + std::string(1, 'a');
  for (int i = 0; i < 256; ++i) path += kYun;
  EXPECT_FALSE(::RemoveDirectoryA(path.c_str()));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_PATH_NOT_FOUND});
  EXPECT_FALSE(::RemoveDirectoryA((path + "a").c_str()));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILENAME_EXCED_RANGE});
}

TEST_F(AnsiCalls, StartChildren) {
  std::vector<std::string> arguments;
  server_.processes().Install("tool", [&arguments](Server&, ChildProcess& child) -> DWORD {
    arguments = child.Arguments();
    return 0;
  });
  std::string command_line = "tool \"" + folder_ + "\" " + folder_ + "\\a";
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION child = {};
  ASSERT_TRUE(::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE,
                               CREATE_NO_WINDOW, nullptr, nullptr, &startup, &child));
  server_.processes().WaitForAll();
  EXPECT_EQ(arguments, (std::vector<std::string>{"tool", "C:\\運", "C:\\運\\a"}));
  ::CloseHandle(child.hProcess);
  ::CloseHandle(child.hThread);
}

TEST_F(AnsiCalls, ShowAndLoadTexts) {
  // IDS 117: U+8FDB U+5EA6.
  std::array<char, 8> text{};
  EXPECT_EQ(::LoadStringA(nullptr, 117, text.data(), 8), 4);
  EXPECT_STREQ(text.data(), "\xBD\xF8\xB6\xC8");
  EXPECT_EQ(::LoadStringA(nullptr, 117, text.data(), 4), 2);
  EXPECT_STREQ(text.data(), "\xBD\xF8");
  ::MessageBoxA(nullptr, "\xBD\xF8", kYun, MB_OK);
  ASSERT_EQ(server_.message_boxes().Shown().size(), 1u);
  EXPECT_EQ(server_.message_boxes().Shown()[0].text, "进");
  EXPECT_EQ(server_.message_boxes().Shown()[0].caption, "運");
}

TEST_F(AnsiCalls, FormatMessages) {
  server_.system().messages[ERROR_ACCESS_DENIED] = "運";
  char* text = nullptr;
  EXPECT_EQ(::FormatMessageA(0x1300, nullptr, ERROR_ACCESS_DENIED, 0x400,
                             reinterpret_cast<LPSTR>(&text), 0, nullptr),
            4u);
  EXPECT_STREQ(text, "\xDF\\\r\n");
  ::LocalFree(text);
}

TEST_F(AnsiCalls, LookUpAccounts) {
  server_.system().ansi_code_page = 1252;
  server_.system().language = 1031;
  std::array<char, 68> sid{};
  std::array<char, 32> domain{};
  DWORD sid_size = 68;
  DWORD domain_size = 32;
  SID_NAME_USE use{};
  EXPECT_TRUE(::LookupAccountNameA(nullptr, "NT-AUTORIT\xC4T\\SYSTEM", sid.data(), &sid_size,
                                   domain.data(), &domain_size, &use));
  EXPECT_STREQ(domain.data(), "NT-AUTORIT\xC4T");
  EXPECT_EQ(domain_size, 12u);
}

}  // namespace
}  // namespace simulator
