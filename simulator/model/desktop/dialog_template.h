// Dialog templates as a resource script describes them.
#ifndef SIMULATOR_MODEL_DESKTOP_DIALOG_TEMPLATE_H_
#define SIMULATOR_MODEL_DESKTOP_DIALOG_TEMPLATE_H_

#include <windows.h>

#include <string>
#include <vector>

namespace simulator {

// In dialog units.
struct DialogRectangle {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
};

struct DialogFont {
  int points = 0;
  std::string face;
  int weight = 0;
  bool italic = false;
  int charset = 0;
};

struct ControlTemplate {
  WORD id = 0;
  std::string window_class;  // "EDIT", "STATIC", "BUTTON", "msctls_progress32"
  DialogRectangle rectangle;
  DWORD style = 0;  // complete, including WS_CHILD and what the statement implies
  DWORD extended_style = 0;
  std::string text;
};

struct DialogTemplate {
  DWORD style = 0;
  DWORD extended_style = 0;
  DialogRectangle rectangle;
  std::string caption;
  DialogFont font;
  std::vector<ControlTemplate> controls;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOG_TEMPLATE_H_
