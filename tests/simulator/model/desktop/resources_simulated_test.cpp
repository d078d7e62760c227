// Compiled resources, written byte by byte as the format's documentation has them.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/desktop/resources.h"

namespace simulator {
namespace {

constexpr WORD kIsNumber = 0xFFFF;
constexpr WORD kDialogType = 5;
constexpr WORD kStringType = 6;
constexpr WORD kIconGroupType = 14;

void Align(std::string& bytes) { bytes.resize((bytes.size() + 3) / 4 * 4); }

std::string Text(std::u16string_view text) {
  std::string bytes;
  for (const char16_t unit : text) AppendNumber<WORD>(unit, bytes);
  AppendNumber<WORD>(0, bytes);
  return bytes;
}

std::string Resource(WORD type, WORD name, LANGID language, const std::string& data) {
  std::string bytes;
  AppendNumber(static_cast<DWORD>(data.size()), bytes);
  AppendNumber<DWORD>(32, bytes);  // the header's own size
  for (const WORD number : {kIsNumber, type, kIsNumber, name}) AppendNumber(number, bytes);
  AppendNumber<DWORD>(0, bytes);
  AppendNumber<WORD>(0x1030, bytes);  // movable, pure, discardable
  AppendNumber(language, bytes);
  AppendNumber<uint64_t>(0, bytes);
  bytes += data;
  Align(bytes);
  return bytes;
}

// What every file begins with.
std::string Empty() { return Resource(0, 0, 0, ""); }

// Sixteen strings, empty but for those given.
std::string Block(const std::map<size_t, std::u16string>& strings) {
  std::string bytes;
  for (size_t i = 0; i < 16; ++i) {
    const auto found = strings.find(i);
    const std::u16string text = found == strings.end() ? u"" : found->second;
    AppendNumber(static_cast<WORD>(text.size()), bytes);
    for (const char16_t unit : text) AppendNumber<WORD>(unit, bytes);
  }
  return bytes;
}

struct Control {
  std::string window_class;
  std::string data = std::string(2, '\0');
  DWORD help = 0;
};

std::string Class(WORD number) {
  std::string bytes;
  AppendNumber(kIsNumber, bytes);
  AppendNumber(number, bytes);
  return bytes;
}

struct Dialog {
  WORD version = 1;
  DWORD help = 0;
  DWORD style = DS_SETFONT | WS_POPUP;
  std::string menu = std::string(2, '\0');
  std::string window_class = std::string(2, '\0');
  std::vector<Control> controls = {};
};

void AppendPlace(std::string& bytes) {
  for (const int number : {1, -2, 315, 119}) AppendNumber(static_cast<WORD>(number), bytes);
}

std::string DialogBytes(const Dialog& dialog) {
  std::string bytes;
  AppendNumber(dialog.version, bytes);
  AppendNumber(kIsNumber, bytes);
  AppendNumber(dialog.help, bytes);
  AppendNumber<DWORD>(WS_EX_TOPMOST, bytes);
  AppendNumber(dialog.style, bytes);
  AppendNumber(static_cast<WORD>(dialog.controls.size()), bytes);
  AppendPlace(bytes);
  bytes += dialog.menu + dialog.window_class + Text(u"Title");
  if ((dialog.style & DS_SETFONT) != 0) {
    AppendNumber<WORD>(8, bytes);
    AppendNumber<WORD>(400, bytes);
    AppendNumber<BYTE>(1, bytes);  // italic
    AppendNumber<BYTE>(2, bytes);  // the character set
    bytes += Text(u"Face");
  }
  for (const Control& control : dialog.controls) {
    Align(bytes);
    AppendNumber(control.help, bytes);
    AppendNumber<DWORD>(WS_EX_TOPMOST, bytes);
    AppendNumber<DWORD>(WS_CHILD, bytes);
    AppendPlace(bytes);
    AppendNumber<DWORD>(0xFFFFFFFF, bytes);  // IDC_STATIC
    bytes += control.window_class + Text(u"Text") + control.data;
  }
  return bytes;
}

DialogTemplate Read(const Dialog& dialog) {
  const Resources read = ReadResources(Resource(kDialogType, 101, 1033, DialogBytes(dialog)));
  return read.dialogs.at({1033, 101});
}

TEST(CompiledResources, AreNoneInAnEmptyFile) {
  for (const std::string& file : {std::string(), Empty()}) {
    const Resources read = ReadResources(file);
    EXPECT_TRUE(read.strings.empty());
    EXPECT_TRUE(read.dialogs.empty());
    EXPECT_TRUE(read.icons.empty());
  }
}

TEST(CompiledResources, HaveSixteenStringsABlock) {
  const std::string file = Empty() +
                           Resource(kStringType, 1, 1033, Block({{0, u"a"}, {15, u"bc"}})) +
                           Resource(kStringType, 8, 1033, Block({{5, u"d"}})) +
                           Resource(kStringType, 8, 2052, Block({{5, u"\u8FDB\U0001F600"}}));
  EXPECT_EQ(ReadResources(file).strings,
            (ResourceMap<std::string>{{{1033, 0}, "a"},
                                      {{1033, 15}, "bc"},
                                      {{1033, 117}, "d"},
                                      {{2052, 117}, "\u8FDB\U0001F600"}}));
}

TEST(CompiledResources, NameTheGroupsOfIcons) {
  constexpr WORD kIconType = 3;
  const std::string file = Resource(kIconType, 1, 1033, "image") +
                           Resource(kIconGroupType, 104, 0, "group") +
                           Resource(kIconGroupType, 105, 2052, "");
  EXPECT_EQ(ReadResources(file).icons, (std::set<ResourceKey>{{0, 104}, {2052, 105}}));
}

TEST(CompiledResources, HaveDialogsWithAFrameACaptionAndAFont) {
  const DialogTemplate dialog = Read({});
  EXPECT_EQ(dialog.style, DWORD{DS_SETFONT | WS_POPUP});
  EXPECT_EQ(dialog.extended_style, DWORD{WS_EX_TOPMOST});
  EXPECT_EQ(dialog.rectangle.x, 1);
  EXPECT_EQ(dialog.rectangle.y, -2);
  EXPECT_EQ(dialog.rectangle.width, 315);
  EXPECT_EQ(dialog.rectangle.height, 119);
  EXPECT_EQ(dialog.caption, "Title");
  EXPECT_EQ(dialog.font.points, 8);
  EXPECT_EQ(dialog.font.weight, 400);
  EXPECT_TRUE(dialog.font.italic);
  EXPECT_EQ(dialog.font.charset, 2);
  EXPECT_EQ(dialog.font.face, "Face");
}

TEST(CompiledResources, HaveDialogsWithoutAFont) {
  const DialogTemplate dialog =
      Read({.style = WS_POPUP, .controls = {Control{.window_class = Class(0x81)}}});
  EXPECT_EQ(dialog.font.face, "");
  EXPECT_EQ(dialog.controls.at(0).window_class, "EDIT");
}

TEST(CompiledResources, HaveControlsInTheirOrder) {
  const DialogTemplate dialog =
      Read({.controls = {Control{.window_class = Class(0x80)}, Control{.window_class = Class(0x82)},
                         Control{.window_class = Text(u"bar")}}});
  ASSERT_EQ(dialog.controls.size(), 3U);
  EXPECT_EQ(dialog.controls[0].window_class, "BUTTON");
  EXPECT_EQ(dialog.controls[1].window_class, "STATIC");
  EXPECT_EQ(dialog.controls[2].window_class, "bar");
  for (const ControlTemplate& control : dialog.controls) {
    EXPECT_EQ(control.id, 0xFFFF);
    EXPECT_EQ(control.style, DWORD{WS_CHILD});
    EXPECT_EQ(control.extended_style, DWORD{WS_EX_TOPMOST});
    EXPECT_EQ(control.rectangle.y, -2);
    EXPECT_EQ(control.text, "Text");
  }
}

TEST(CompiledResourcesDeathTest, AreRefusedWhereTheyAreNotSupported) {
  EXPECT_DEATH(Read({.version = 0}), "no DIALOGEX");
  EXPECT_DEATH(Read({.help = 1}), "a help id");
  EXPECT_DEATH(Read({.menu = Class(3)}), "a menu");
  EXPECT_DEATH(Read({.window_class = Text(u"own")}), "a class");
  EXPECT_DEATH(Read({.controls = {Control{.window_class = Class(0x83)}}}), "the class 131");
  EXPECT_DEATH(Read({.controls = {Control{.window_class = Class(0x81), .help = 1}}}), "a help id");
  EXPECT_DEATH(Read({.controls = {Control{.window_class = Class(0x81), .data = Text(u"\1")}}}),
               "creation data");
  EXPECT_DEATH(ReadResources(Text(u"1234")), "not well-formed|a text");
}

TEST(CompiledResourcesDeathTest, AreRefusedWhereTheyEndTooEarly) {
  const std::string whole = Resource(
      kDialogType, 101, 1033, DialogBytes({.controls = {Control{.window_class = Class(0x81)}}}));
  const std::string data = whole.substr(32);
  for (const size_t size : {size_t{4}, size_t{26}, size_t{40}, data.size() - 4}) {
    EXPECT_DEATH(ReadResources(whole.substr(0, 32 + size)), "not well-formed") << size;
    EXPECT_DEATH(ReadResources(Resource(kDialogType, 101, 1033, data.substr(0, size))),
                 "not well-formed|no DIALOGEX")
        << size;
  }
  EXPECT_DEATH(ReadResources(Resource(kStringType, 1, 1033, Block({}).substr(0, 30))),
               "not well-formed");
  EXPECT_DEATH(ReadResources(Empty().substr(0, 31)), "not well-formed");
}

TEST(CompiledResources, AreThoseOfTheProgram) {
  const Resources& program = ProgramResources();
  for (const LANGID language : {LANGID{1033}, LANGID{2052}}) {
    EXPECT_EQ(program.dialogs.at({language, 101}).controls.size(), 4U);
    for (UINT id = 112; id <= 117; ++id)
      EXPECT_TRUE(program.strings.contains({language, id})) << id;
  }
  EXPECT_EQ(program.strings.size(), 12U);
  EXPECT_EQ(program.icons.size(), 8U);
}

}  // namespace
}  // namespace simulator
