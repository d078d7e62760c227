#include "simulator/model/desktop/resource_dialogs.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "simulator/model/common/path_name.h"

namespace simulator {
namespace {

// What a control has unless its statement takes it away.
constexpr DWORD kEveryControl = WS_CHILD | WS_VISIBLE;

DialogRectangle ReadRectangle(ResourceParser& parser) {
  DialogRectangle rectangle;
  rectangle.x = parser.ReadSmallNumber();
  parser.ReadComma();
  rectangle.y = parser.ReadSmallNumber();
  parser.ReadComma();
  rectangle.width = parser.ReadSmallNumber();
  parser.ReadComma();
  rectangle.height = parser.ReadSmallNumber();
  return rectangle;
}

// The window classes that the system itself has, in capitals however they are written.
std::string CanonicalClass(const std::string& name) {
  for (const char* known : {"BUTTON", "EDIT", "STATIC"}) {
    if (NameKey(name) == NameKey(known)) return known;
  }
  return name;
}

// Behind a control's rectangle, or behind its style.
void ReadExtendedStyle(ResourceParser& parser, ControlTemplate* control) {
  if (!parser.Token().IsSign(',')) return;
  parser.Advance();
  control->extended_style = parser.ReadStyle(0);
}

// CONTROL text, id, class, style, x, y, width, height [, extended style]
ControlTemplate ReadAnyControl(ResourceParser& parser) {
  ControlTemplate control;
  control.text = parser.ReadText();
  parser.ReadComma();
  control.id = static_cast<WORD>(parser.ReadSmallNumber());
  parser.ReadComma();
  control.window_class = CanonicalClass(parser.ReadText());
  parser.ReadComma();
  control.style = parser.ReadStyle(kEveryControl);
  parser.ReadComma();
  control.rectangle = ReadRectangle(parser);
  ReadExtendedStyle(parser, &control);
  return control;
}

struct Statement {
  std::string_view keyword;
  std::string_view window_class;
  bool has_text;
  DWORD style;
};

constexpr auto kStatements = std::to_array<Statement>({
    {"EDITTEXT", "EDIT", false, kEveryControl | ES_LEFT | WS_BORDER | WS_TABSTOP},
    {"LTEXT", "STATIC", true, kEveryControl | SS_LEFT | WS_GROUP},
    {"PUSHBUTTON", "BUTTON", true, kEveryControl | BS_PUSHBUTTON | WS_TABSTOP},
});

// KEYWORD [text,] id, x, y, width, height [, style [, extended style]]
ControlTemplate ReadControlOf(const Statement& statement, ResourceParser& parser) {
  ControlTemplate control;
  control.window_class = statement.window_class;
  if (statement.has_text) {
    control.text = parser.ReadText();
    parser.ReadComma();
  }
  control.id = static_cast<WORD>(parser.ReadSmallNumber());
  parser.ReadComma();
  control.rectangle = ReadRectangle(parser);
  control.style = statement.style;
  if (parser.Token().IsSign(',')) {
    parser.Advance();
    control.style = parser.ReadStyle(control.style);
    ReadExtendedStyle(parser, &control);
  }
  return control;
}

void ReadControl(ResourceParser& parser, DialogTemplate* dialog) {
  if (parser.Token().Is("CONTROL")) {
    parser.Advance();
    dialog->controls.push_back(ReadAnyControl(parser));
    return;
  }
  const auto statement =
      std::find_if(kStatements.begin(), kStatements.end(),
                   [&parser](const Statement& known) { return parser.Token().Is(known.keyword); });
  if (statement == kStatements.end()) return parser.Fail("an unknown control");
  parser.Advance();
  dialog->controls.push_back(ReadControlOf(*statement, parser));
}

// FONT points, face [, weight [, italic [, charset]]], the latter three in DIALOGEX only.
DialogFont ReadFont(ResourceParser& parser, bool is_extended) {
  constexpr int kDefaultCharset = 1;
  DialogFont font;
  font.charset = kDefaultCharset;
  font.points = parser.ReadSmallNumber();
  parser.ReadComma();
  font.face = parser.ReadText();
  const auto has_next = [&parser, is_extended] {
    if (!is_extended || !parser.Token().IsSign(',')) return false;
    parser.Advance();
    return true;
  };
  if (has_next()) font.weight = parser.ReadSmallNumber();
  if (has_next()) font.italic = parser.ReadSmallNumber() != 0;
  if (has_next()) font.charset = parser.ReadSmallNumber();
  return font;
}

}  // namespace

DialogTemplate ReadDialog(ResourceParser& parser, LANGID* language) {
  const bool is_extended = parser.Token().Is("DIALOGEX");
  parser.Advance();
  parser.PassOverWords();
  DialogTemplate dialog;
  dialog.rectangle = ReadRectangle(parser);
  dialog.style = WS_POPUP | WS_BORDER | WS_SYSMENU;
  DWORD implied = 0;
  while (!parser.AtEnd() && !parser.Token().IsBegin()) {
    const ResourceToken statement = parser.Token();
    if (statement.Is("LANGUAGE")) {
      *language = parser.ReadLanguage();
      continue;
    }
    if (!statement.Is("STYLE") && !statement.Is("EXSTYLE") && !statement.Is("CAPTION") &&
        !statement.Is("FONT")) {
      parser.Fail("an unknown statement of a dialog");
      return dialog;
    }
    parser.Advance();
    if (statement.Is("STYLE")) dialog.style = parser.ReadStyle(0);
    if (statement.Is("EXSTYLE")) dialog.extended_style = parser.ReadStyle(0);
    if (statement.Is("CAPTION")) {
      dialog.caption = parser.ReadText();
      implied |= WS_CAPTION;
    }
    if (statement.Is("FONT")) {
      dialog.font = ReadFont(parser, is_extended);
      implied |= DS_SETFONT;
    }
  }
  dialog.style |= implied;
  parser.Advance();
  while (!parser.AtEnd() && !parser.Token().IsEnd()) ReadControl(parser, &dialog);
  if (parser.AtEnd()) parser.Fail("a dialog without an end");
  parser.Advance();
  return dialog;
}

}  // namespace simulator
