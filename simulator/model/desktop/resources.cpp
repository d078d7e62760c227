#include "simulator/model/desktop/resources.h"

#include <cstdint>
#include <string>
#include <utility>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"

// The program's compiled resources, see program_resources.S.
extern "C" const char simulated_program_resources[];
extern "C" const char simulated_program_resources_end[];

namespace simulator {
namespace {

// https://learn.microsoft.com/windows/win32/menurc/resource-types
enum ResourceType : WORD { kDialog = 5, kStrings = 6, kIconGroup = 14 };

constexpr WORD kIsNumber = 0xFFFF;
constexpr size_t kAlignment = 4;
constexpr UINT kStringsOfBlock = 16;

struct ResourceHeader {
  uint32_t data_size = 0;
  WORD type = 0;
  WORD name = 0;
  LANGID language = 0;
};

// Types and names are 0xFFFF and a number, or a text.
WORD TakeNumber(ByteReader& bytes) {
  if (bytes.Take<WORD>() != kIsNumber) Unsupported("a resource whose type or name is a text");
  return bytes.Take<WORD>();
}

// RESOURCEHEADER
ResourceHeader TakeHeader(ByteReader& bytes) {
  ResourceHeader header;
  header.data_size = bytes.Take<uint32_t>();
  bytes.Take<uint32_t>();  // HeaderSize: the same for all whose type and name are numbers
  header.type = TakeNumber(bytes);
  header.name = TakeNumber(bytes);
  bytes.Take<uint32_t>();  // DataVersion
  bytes.Take<WORD>();      // MemoryFlags
  header.language = bytes.Take<LANGID>();
  bytes.Take<uint64_t>();  // Version, Characteristics
  return header;
}

// A block of the string table: sixteen lengths, each with its characters.
void ReadStrings(const ResourceHeader& header, ByteReader& block, Resources* resources) {
  for (UINT i = 0; i < kStringsOfBlock; ++i) {
    const WORD length = block.Take<WORD>();
    std::u16string text;
    for (WORD unit = 0; unit < length && block.ok(); ++unit) text += block.Take<char16_t>();
    if (length == 0) continue;
    const UINT id = (header.name - 1u) * kStringsOfBlock + i;
    resources->strings[{header.language, id}] = Utf8FromUtf16(text);
  }
}

// UTF-16 up to a zero.
std::string TakeText(ByteReader& bytes) {
  std::u16string text;
  for (char16_t unit = bytes.Take<char16_t>(); unit != 0; unit = bytes.Take<char16_t>()) {
    text += unit;
  }
  return Utf8FromUtf16(text);
}

// A text, or 0xFFFF and the number of a class of the system.
std::string TakeClass(ByteReader& bytes) {
  ByteReader ahead = bytes;
  if (ahead.Take<WORD>() != kIsNumber) return TakeText(bytes);
  const WORD number = ahead.Take<WORD>();
  bytes = ahead;
  switch (number) {
    case 0x80:
      return "BUTTON";
    case 0x81:
      return "EDIT";
    case 0x82:
      return "STATIC";
    default:
      if (bytes.ok()) Unsupported("a control of the class " + std::to_string(number));
      return {};
  }
}

void ExpectNone(ByteReader& bytes, const char* what) {
  if (bytes.Take<WORD>() != 0) Unsupported(std::string("a dialog template with ") + what);
}

DialogRectangle TakeRectangle(ByteReader& bytes) {
  DialogRectangle rectangle;
  rectangle.x = bytes.Take<int16_t>();
  rectangle.y = bytes.Take<int16_t>();
  rectangle.width = bytes.Take<int16_t>();
  rectangle.height = bytes.Take<int16_t>();
  return rectangle;
}

void ExpectNoHelp(ByteReader& bytes) {
  if (bytes.Take<uint32_t>() != 0) Unsupported("a dialog template with a help id");
}

// DLGITEMTEMPLATEEX
ControlTemplate TakeControl(ByteReader& bytes) {
  ControlTemplate control;
  ExpectNoHelp(bytes);
  control.extended_style = bytes.Take<DWORD>();
  control.style = bytes.Take<DWORD>();
  control.rectangle = TakeRectangle(bytes);
  control.id = static_cast<WORD>(bytes.Take<DWORD>());
  control.window_class = TakeClass(bytes);
  control.text = TakeText(bytes);
  ExpectNone(bytes, "creation data");
  return control;
}

DialogFont TakeFont(ByteReader& bytes) {
  DialogFont font;
  font.points = bytes.Take<WORD>();
  font.weight = bytes.Take<WORD>();
  font.italic = bytes.Take<BYTE>() != 0;
  font.charset = bytes.Take<BYTE>();
  font.face = TakeText(bytes);
  return font;
}

// A DLGTEMPLATEEX: https://learn.microsoft.com/windows/win32/dlgbox/dlgtemplateex
DialogTemplate ReadDialog(ByteReader& bytes) {
  constexpr WORD kVersion = 1;
  const size_t size = bytes.rest().size();
  if (bytes.Take<WORD>() != kVersion || bytes.Take<WORD>() != kIsNumber) {
    Unsupported("a dialog template that is no DIALOGEX");
  }
  DialogTemplate dialog;
  ExpectNoHelp(bytes);
  dialog.extended_style = bytes.Take<DWORD>();
  dialog.style = bytes.Take<DWORD>();
  const WORD controls = bytes.Take<WORD>();
  dialog.rectangle = TakeRectangle(bytes);
  ExpectNone(bytes, "a menu");
  ExpectNone(bytes, "a class");
  dialog.caption = TakeText(bytes);
  if ((dialog.style & DS_SETFONT) != 0) dialog.font = TakeFont(bytes);
  for (WORD i = 0; i < controls && bytes.ok(); ++i) {
    bytes.Take((kAlignment - (size - bytes.rest().size()) % kAlignment) % kAlignment);
    dialog.controls.push_back(TakeControl(bytes));
  }
  return dialog;
}

void ReadResource(const ResourceHeader& header, ByteReader& data, Resources* resources) {
  const ResourceKey key{header.language, header.name};
  if (header.type == kStrings) ReadStrings(header, data, resources);
  if (header.type == kDialog) resources->dialogs[key] = ReadDialog(data);
  if (header.type == kIconGroup) resources->icons.insert(key);
}

}  // namespace

Resources ReadResources(std::string_view bytes) {
  Resources resources;
  ByteReader file(bytes);
  while (file.ok() && !file.rest().empty()) {
    const ResourceHeader header = TakeHeader(file);
    ByteReader data(file.Take(header.data_size));
    if (file.ok()) ReadResource(header, data, &resources);
    file.Take((kAlignment - header.data_size % kAlignment) % kAlignment);
    if (!data.ok()) file.Fail();
  }
  if (!file.ok()) Unsupported("resources that are not well-formed");
  return resources;
}

const Resources& ProgramResources() {
  static const Resources resources = ReadResources(
      {simulated_program_resources,
       static_cast<size_t>(simulated_program_resources_end - simulated_program_resources)});
  return resources;
}

}  // namespace simulator
