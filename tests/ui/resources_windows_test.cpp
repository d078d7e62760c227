// The resources in the program's file: both languages of the dialog and of the texts, icons,
// version.
#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ui/resource.h"

namespace ui {
namespace {

HMODULE Program() {
  static const HMODULE program = ::LoadLibraryExW(PROGRAM_FILE, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  return program;
}

// The names of the types are those of narrow calls.
LPCWSTR Wide(LPSTR type) { return reinterpret_cast<LPCWSTR>(type); }

std::string_view Bytes(LPSTR type, int number, LANGID language) {
  const HRSRC resource =
      ::FindResourceExW(Program(), Wide(type), MAKEINTRESOURCEW(number), language);
  if (resource == nullptr) return {};
  return {static_cast<const char*>(::LockResource(::LoadResource(Program(), resource))),
          ::SizeofResource(Program(), resource)};
}

// A control in an extended dialog template, from its style to its id.
struct Item {
  DWORD style;
  std::array<int16_t, 4> place;
  DWORD id;
};

// An entry of the string table in just that language. A block has sixteen, each a length and so
// many characters.
std::wstring StringEntry(int number, LANGID language) {
  const auto* entry =
      reinterpret_cast<const WCHAR*>(Bytes(RT_STRING, number / 16 + 1, language).data());
  if (entry == nullptr) return {};
  for (int skip = number % 16; skip > 0; --skip) entry += 1 + *entry;
  return {entry + 1, static_cast<size_t>(*entry)};
}

struct Texts {
  const char* name;
  LANGID language;
  std::array<const wchar_t*, 6> strings;  // 112 to 117
  const wchar_t* caption;
  const wchar_t* note;
  int note_width;
  const wchar_t* cancel;
};

std::ostream& operator<<(std::ostream& out, const Texts& texts) { return out << texts.name; }

class Language : public testing::TestWithParam<Texts> {
 protected:
  Language() {
    ::InitCommonControls();
    dialog_ = ::CreateDialogIndirectParamW(
        Program(),
        reinterpret_cast<LPCDLGTEMPLATEW>(Bytes(RT_DIALOG, IDD_MAIN, GetParam().language).data()),
        nullptr, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
  }
  ~Language() override { ::DestroyWindow(dialog_); }

  std::wstring Text(HWND window) const {
    std::array<wchar_t, 256> text{};
    ::GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    return text.data();
  }

  // Checks where a control is, in dialog units, and which styles it has, beside WS_CHILD and
  // WS_VISIBLE. The rectangle has a width and a height.
  void Check(int id, const wchar_t* window_class, RECT units, DWORD styles) {
    const HWND control = ::GetDlgItem(dialog_, id);
    ASSERT_NE(control, nullptr) << id;
    std::array<wchar_t, 64> name{};
    ::GetClassNameW(control, name.data(), static_cast<int>(name.size()));
    EXPECT_EQ(::lstrcmpiW(name.data(), window_class), 0) << id;

    RECT own{};
    ::GetWindowRect(control, &own);
    ::MapWindowPoints(nullptr, dialog_, reinterpret_cast<POINT*>(&own), 2);
    RECT expected{units.left, units.top, units.left + units.right, units.top + units.bottom};
    ASSERT_TRUE(::MapDialogRect(dialog_, &expected));
    EXPECT_EQ(own.left, expected.left) << id;
    EXPECT_EQ(own.top, expected.top) << id;
    // A place and a size are rounded apart.
    EXPECT_NEAR(own.right, expected.right, 1) << id;
    EXPECT_NEAR(own.bottom, expected.bottom, 1) << id;

    // The controls change their own styles: those of the template count.
    const Item item{styles | WS_CHILD | WS_VISIBLE,
                    {static_cast<int16_t>(units.left), static_cast<int16_t>(units.top),
                     static_cast<int16_t>(units.right), static_cast<int16_t>(units.bottom)},
                    static_cast<DWORD>(id)};
    const std::string_view bytes(reinterpret_cast<const char*>(&item), sizeof(item));
    EXPECT_NE(Bytes(RT_DIALOG, IDD_MAIN, GetParam().language).find(bytes), std::string_view::npos)
        << id;
  }

  HWND dialog_ = nullptr;
};

TEST_P(Language, HasItsTexts) {
  for (int number = 0; number < 6; ++number) {
    EXPECT_EQ(StringEntry(112 + number, GetParam().language),
              GetParam().strings.at(static_cast<size_t>(number)));
  }
}

TEST_P(Language, HasItsDialog) {
  ASSERT_NE(dialog_, nullptr);
  EXPECT_EQ(Text(dialog_), GetParam().caption);
  const auto style = static_cast<DWORD>(::GetWindowLongPtrW(dialog_, GWL_STYLE));
  EXPECT_EQ(style & (WS_POPUP | WS_CAPTION), DWORD{WS_POPUP | WS_CAPTION});
  EXPECT_EQ(style & (WS_SYSMENU | WS_VISIBLE | WS_THICKFRAME), 0U);
  EXPECT_TRUE(style & DS_MODALFRAME);
  EXPECT_TRUE(::GetWindowLongPtrW(dialog_, GWL_EXSTYLE) & WS_EX_TOPMOST);
  RECT client{};
  ::GetClientRect(dialog_, &client);
  RECT expected{0, 0, 315, 119};
  ASSERT_TRUE(::MapDialogRect(dialog_, &expected));
  EXPECT_EQ(client.right, expected.right);
  EXPECT_EQ(client.bottom, expected.bottom);
}

TEST_P(Language, HasItsControls) {
  ASSERT_NE(dialog_, nullptr);
  Check(IDC_LOG, L"Edit", {16, 14, 283, 44},
        WS_BORDER | WS_VSCROLL | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY);
  Check(IDC_PROGRESS, PROGRESS_CLASSW, {16, 65, 283, 14}, WS_BORDER);
  Check(IDC_NOTE, L"Static", {17, 103, GetParam().note_width, 8}, 0);
  Check(IDCANCEL, L"Button", {258, 98, 50, 14}, WS_TABSTOP);
  EXPECT_EQ(Text(::GetDlgItem(dialog_, IDC_NOTE)), GetParam().note);
  EXPECT_EQ(Text(::GetDlgItem(dialog_, IDCANCEL)), GetParam().cancel);
}

INSTANTIATE_TEST_SUITE_P(
    Both, Language,
    testing::Values(
        Texts{"English",
              1033,
              {L"Vantoro Restore Tool", L"Vantoro Restore Is Running, Are You Sure To Cancel?",
               L"Vantoro Restore Not Finished.", L"Vantoro Restore Finish, Do you want to restart!",
               L"Windows System Will Restart In 30 Seconds!", L"Progress"},
              L"Vantoro Restore Tool",
              L"Note: Please Don't Close This Before Restore Is Finished.",
              184,
              L"Cancel"},
        Texts{"Chinese",
              2052,
              {L"Vantoro迁云还原检查工具", L"迁云还原检测工作还在进行当中，您确定要退出吗？",
               L"迁云还原检测未完成。", L"迁云还原检测已完成，需要重启系统，您要重启系统吗？",
               L"Windows系统将在30秒后重启！", L"进度"},
              L"Vantoro迁云还原检查工具",
              L"注意：正在进行迁云后系统还原检测工作，请不要关闭此程序。",
              225,
              L"取消"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(ProgramResources, HaveTheIconsInEverySize) {
  for (int number = IDI_TOOL; number <= IDI_TURNING_7; ++number) {
    for (const int size : {16, 32, 48}) {
      const HANDLE icon = ::LoadImageW(Program(), MAKEINTRESOURCEW(number), IMAGE_ICON, size, size,
                                       LR_DEFAULTCOLOR);
      EXPECT_NE(icon, nullptr) << number;
      ::DestroyIcon(static_cast<HICON>(icon));
    }
  }
}

TEST(ProgramResources, AskForAdministratorsAndNewControls) {
  const std::string_view manifest = Bytes(RT_MANIFEST, 1, LANG_NEUTRAL);
  for (const char* part :
       {"level=\"requireAdministrator\"",
        "name=\"Microsoft.Windows.Common-Controls\" version=\"6.0.0.0\"",
        "{e2011457-1546-43c5-a5fe-008deee3d3f0}", "{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}"}) {
    EXPECT_NE(manifest.find(part), std::string_view::npos) << part;
  }
}

// A version resource begins with its header, its key and padding, 40 bytes.
TEST(ProgramResources, TellTheVersion) {
  const std::string_view version = Bytes(RT_VERSION, 1, LANG_NEUTRAL);
  ASSERT_GE(version.size(), 40 + sizeof(VS_FIXEDFILEINFO));
  const auto* const info = reinterpret_cast<const VS_FIXEDFILEINFO*>(version.data() + 40);
  EXPECT_EQ(info->dwSignature, 0xFEEF04BDU);
  EXPECT_EQ(info->dwFileVersionMS, 0x00010001U);
  EXPECT_EQ(info->dwFileVersionLS, 0x00000001U);
  EXPECT_EQ(info->dwProductVersionMS, 0x00010001U);
  EXPECT_EQ(info->dwProductVersionLS, 0x00000001U);
}

// As the system reads them, the table of each language by its name.
TEST(ProgramResources, TellTheirTextsInBothLanguages) {
  DWORD unused = 0;
  const DWORD size = ::GetFileVersionInfoSizeW(PROGRAM_FILE, &unused);
  ASSERT_NE(size, 0U);
  std::vector<char> version(size);
  ASSERT_TRUE(::GetFileVersionInfoW(PROGRAM_FILE, 0, size, version.data()));
  const auto value = [&version](const std::wstring& path) -> std::wstring {
    void* found = nullptr;
    UINT length = 0;
    if (!::VerQueryValueW(version.data(), path.c_str(), &found, &length) || length == 0) return {};
    return {static_cast<const wchar_t*>(found), length - 1};  // without the terminator
  };

  const std::array<std::pair<const wchar_t*, const wchar_t*>, 2> tables = {{
      {L"\\StringFileInfo\\040904B0\\", L"Vantoro Restore Tool"},
      {L"\\StringFileInfo\\080404B0\\", L"Vantoro迁云还原检查工具"},
  }};
  for (const auto& [table, title] : tables) {
    const std::wstring path = table;
    EXPECT_EQ(value(path + L"FileDescription"), title);
    EXPECT_EQ(value(path + L"FileVersion"), L"1.1.0.1");
    EXPECT_EQ(value(path + L"InternalName"), L"vantoro_restore");
    EXPECT_EQ(value(path + L"OriginalFilename"), L"vantoro_restore.exe");
    EXPECT_EQ(value(path + L"ProductName"), title);
    EXPECT_EQ(value(path + L"ProductVersion"), L"1.1.0.1");
  }

  // The tables that there are: language and code page of each.
  void* translations = nullptr;
  UINT length = 0;
  ASSERT_TRUE(
      ::VerQueryValueW(version.data(), L"\\VarFileInfo\\Translation", &translations, &length));
  const auto* const words = static_cast<const WORD*>(translations);
  EXPECT_EQ(std::vector<WORD>(words, words + length / sizeof(WORD)),
            (std::vector<WORD>{0x0409, 0x04B0, 0x0804, 0x04B0}));
}

}  // namespace
}  // namespace ui
