#include "simulator/model/desktop/resource_dialog.h"

#include <windows.h>

#include <cstdint>
#include <string>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"

namespace simulator {
namespace {

constexpr WORD kIsNumber = 0xFFFF;

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

}  // namespace

DialogTemplate ReadDialog(ByteReader& bytes) {
  constexpr WORD kVersion = 1;
  constexpr size_t kAlignment = 4;
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

}  // namespace simulator
