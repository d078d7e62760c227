#include "simulator/model/desktop/dialog.h"

#include <array>
#include <utility>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"

namespace simulator {
namespace {

// Pixels of a dialog's unit: an average character of the font "MS Shell Dlg" of 8 points.
constexpr int kBaseWidth = 6;
constexpr int kBaseHeight = 13;

constexpr LONG kFrame = 3;
constexpr LONG kCaption = 23;

constexpr DWORD kDialogStyles =
    DS_FIXEDSYS | DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_VISIBLE;
constexpr DWORD kControlStyles =
    WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | WS_GROUP | WS_VSCROLL;

struct ClassFacts {
  const char* name;
  ControlClass kind;
  DWORD styles;
};

constexpr std::array<ClassFacts, 4> kClasses = {{
    {"BUTTON", ControlClass::kButton, BS_PUSHBUTTON | BS_DEFPUSHBUTTON},
    {"EDIT", ControlClass::kEdit, ES_LEFT | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY},
    {"msctls_progress32", ControlClass::kProgressBar, 0},
    {"STATIC", ControlClass::kStatic, SS_LEFT},
}};

const ClassFacts& FactsOf(const std::string& window_class) {
  for (const ClassFacts& facts : kClasses) {
    if (NameKey(facts.name) == NameKey(window_class)) return facts;
  }
  Unsupported("a control of the class " + window_class);
}

// To the nearest, halves away from zero, as MulDiv.
LONG Scale(int units, int base, int divisor) {
  const int product = 2 * units * base + (units < 0 ? -divisor : divisor);
  return static_cast<LONG>(product / (2 * divisor));
}

RECT Pixels(const DialogRectangle& units) {
  const LONG x = Scale(units.x, kBaseWidth, 4);
  const LONG y = Scale(units.y, kBaseHeight, 8);
  return {x, y, x + Scale(units.width, kBaseWidth, 4), y + Scale(units.height, kBaseHeight, 8)};
}

RECT Moved(const RECT& rectangle, LONG x, LONG y) {
  return {rectangle.left + x, rectangle.top + y, rectangle.right + x, rectangle.bottom + y};
}

Control LayOut(const ControlTemplate& source) {
  const ClassFacts& facts = FactsOf(source.window_class);
  if ((source.style & ~(kControlStyles | facts.styles)) != 0 || source.extended_style != 0) {
    Unsupported("a style of control " + std::to_string(source.id));
  }
  if ((source.style & WS_CHILD) == 0) Unsupported("a control that is no child");
  Control control;
  control.kind = facts.kind;
  control.text = WideFromUtf8(source.text);
  control.shown.id = source.id;
  control.shown.window_class = facts.name;
  control.shown.style = source.style;
  control.shown.rectangle = Pixels(source.rectangle);
  return control;
}

}  // namespace

const ShownControl& ShownDialog::Control(WORD control_id) const {
  for (const ShownControl& control : controls) {
    if (control.id == control_id) return control;
  }
  Unsupported("a dialog's control " + std::to_string(control_id) + ", which is not there");
}

Control* Dialog::Find(int id) {
  for (Control& control : controls) {
    if (has_controls && control.shown.id == id) return &control;
  }
  return nullptr;
}

ShownDialog Dialog::Shown() const {
  ShownDialog dialog = shown;
  for (const Control& control : controls) {
    ShownControl& copy = dialog.controls.emplace_back(control.shown);
    copy.text = Utf8FromWide(control.text);
    copy.rectangle = Moved(copy.rectangle, shown.rectangle.left + kFrame,
                           shown.rectangle.top + kFrame + kCaption);
  }
  return dialog;
}

void Dialog::Invalidate() {
  for (Control& control : controls) {
    control.needs_painting = control.kind != ControlClass::kProgressBar;
  }
}

Dialog LayOut(const DialogTemplate& source) {
  constexpr DWORD kNeeded = WS_POPUP | WS_CAPTION | DS_SETFONT;
  if ((source.style & ~kDialogStyles) != 0 || (source.style & kNeeded) != kNeeded ||
      (source.extended_style & ~DWORD{WS_EX_TOPMOST}) != 0) {
    Unsupported("a style of a dialog");
  }
  if (NameKey(source.font.face) != NameKey("MS Shell Dlg") || source.font.points != 8) {
    Unsupported("a dialog's font other than MS Shell Dlg of 8 points");
  }
  Dialog dialog;
  dialog.shown.style = source.style;
  dialog.shown.extended_style = source.extended_style;
  dialog.shown.caption = source.caption;
  dialog.shown.rectangle = Pixels(source.rectangle);
  dialog.shown.rectangle.right += 2 * kFrame;
  dialog.shown.rectangle.bottom += 2 * kFrame + kCaption;
  for (const ControlTemplate& control : source.controls) {
    dialog.controls.push_back(LayOut(control));
  }
  return dialog;
}

}  // namespace simulator
