#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/server.h"
#include "support/process.h"
#include "support/test_names.h"
#include "ui/show_message.h"

namespace ui {
namespace {

using Lines = std::vector<std::string>;

class ResString : public testing::Test {
 protected:
  const tests::NewProcess process_;
  simulator::Server server_;
};

struct StringCase {
  LANGID language;
  UINT id;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const StringCase& test) {
  return out << "language " << test.language << " string " << test.id;
}

class StringTable : public ResString, public testing::WithParamInterface<StringCase> {};

TEST_P(StringTable, HasTheText) {
  server_.system().language = GetParam().language;
  EXPECT_EQ(LoadResString(GetParam().id), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, StringTable,
    testing::Values(StringCase{1033, 112, "Vantoro Restore Tool"},
                    StringCase{1033, 113, "Vantoro Restore Is Running, Are You Sure To Cancel?"},
                    StringCase{1033, 114, "Vantoro Restore Not Finished."},
                    StringCase{1033, 115, "Vantoro Restore Finish, Do you want to restart!"},
                    StringCase{1033, 116, "Windows System Will Restart In 30 Seconds!"},
                    StringCase{1033, 117, "Progress"},
                    StringCase{2052, 112, "Vantoro迁云还原检查工具"},
                    StringCase{2052, 113, "迁云还原检测工作还在进行当中，您确定要退出吗？"},
                    StringCase{2052, 114, "迁云还原检测未完成。"},
                    StringCase{2052, 115, "迁云还原检测已完成，需要重启系统，您要重启系统吗？"},
                    StringCase{2052, 116, "Windows系统将在30秒后重启！"},
                    StringCase{2052, 117, "进度"}),
    tests::NamedAsPrinted());

TEST_F(ResString, IsEmptyWhenThereIsNone) {
  EXPECT_EQ(LoadResString(111), "");
  EXPECT_EQ(LoadResString(118), "");
  EXPECT_EQ(LoadResString(0xFFFFFFFF), "");
}

TEST_F(ResString, IsEmptyWhenItCannotBeLoaded) {
  server_.calls().FailNext("LoadStringA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(LoadResString(112), "");
}

TEST_F(ResString, IsCutBehind511Bytes) {
  server_.desktop().SetString(1033, 112, std::string(600, 'x'));
  EXPECT_EQ(LoadResString(112), std::string(511, 'x'));
}

TEST_F(ResString, OfWideCharactersIsCutBehind511) {
  server_.desktop().SetString(1033, 116, std::string(600, 'x'));
  EXPECT_EQ(LoadResStringW(), std::wstring(511, L'x'));
}

TEST_F(ResString, Of511BytesIsKept) {
  server_.desktop().SetString(1033, 112, std::string(511, 'x'));
  EXPECT_EQ(LoadResString(112), std::string(511, 'x'));
}

TEST_F(ResString, ComesFromTheModuleThatWasSet) {
  EXPECT_NE(LoadResString(112), "");
  SetResourceModule(reinterpret_cast<HINSTANCE>(uintptr_t{0x140000000}));
  EXPECT_NE(LoadResString(113), "");
  EXPECT_EQ(server_.calls().ArgumentsOf("LoadStringA"), (Lines{"null, 112", "0x140000000, 113"}));
}

class ShowMessageTest : public ResString {
 protected:
  simulator::ShownMessageBox OnlyBox() {
    const std::vector<simulator::ShownMessageBox> boxes = server_.message_boxes().Shown();
    EXPECT_EQ(boxes.size(), 1U);
    return boxes.empty() ? simulator::ShownMessageBox{} : boxes[0];
  }
};

TEST_F(ShowMessageTest, ShowsTheFormattedTextUnderTheToolsTitle) {
  const HWND owner = server_.desktop().CreateWindow();
  EXPECT_EQ(ShowMessage(owner, MB_OKCANCEL | MB_ICONQUESTION, "%s %d%%", "at", 37), IDOK);
  const simulator::ShownMessageBox box = OnlyBox();
  EXPECT_EQ(box.owner, owner);
  EXPECT_EQ(box.text, "at 37%");
  EXPECT_EQ(box.caption, "Vantoro Restore Tool");
  EXPECT_EQ(box.type, 33U);
}

TEST_F(ShowMessageTest, NeedsNoOwner) {
  EXPECT_EQ(ShowMessage(nullptr, MB_ICONERROR, "text"), IDOK);
  EXPECT_EQ(OnlyBox().owner, nullptr);
  EXPECT_EQ(OnlyBox().type, 16U);
}

TEST_F(ShowMessageTest, GivesTheAnswer) {
  server_.message_boxes().Answer([](const simulator::ShownMessageBox&) { return IDCANCEL; });
  EXPECT_EQ(ShowMessage(nullptr, MB_OKCANCEL, "text"), IDCANCEL);
}

TEST_F(ShowMessageTest, GivesZeroWhenTheBoxCannotBeShown) {
  server_.calls().FailNext("MessageBoxA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(ShowMessage(nullptr, MB_OK, "text"), 0);
}

TEST_F(ShowMessageTest, TitlesInTheLanguageOfTheSystem) {
  server_.system().language = 2052;
  ShowMessage(nullptr, MB_OK, "text");
  EXPECT_EQ(OnlyBox().caption, "Vantoro迁云还原检查工具");
}

TEST_F(ShowMessageTest, HasAnEmptyTitleWhenItCannotBeLoaded) {
  server_.calls().FailNext("LoadStringA", ERROR_NOT_ENOUGH_MEMORY);
  ShowMessage(nullptr, MB_OK, "text");
  EXPECT_EQ(OnlyBox().caption, "");
}

TEST_F(ShowMessageTest, CutsBehind2047Characters) {
  const std::string text = std::string(2047, 'a') + std::string(5000, 'b');
  ShowMessage(nullptr, MB_OK, "%s", text.c_str());
  EXPECT_EQ(OnlyBox().text, std::string(2047, 'a'));
}

TEST_F(ShowMessageTest, KeepsATextOf2047Characters) {
  const std::string text(2047, 'a');
  ShowMessage(nullptr, MB_OK, "%s", text.c_str());
  EXPECT_EQ(OnlyBox().text, text);
}

}  // namespace
}  // namespace ui
