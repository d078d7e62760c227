#include "simulator/model/desktop/resource_names.h"

#include <algorithm>
#include <array>
#include <sstream>

#include "simulator/model/desktop/resource_tokens.h"

namespace simulator {
namespace {

struct SdkName {
  std::string_view name;
  uint32_t number;
};

// https://learn.microsoft.com/windows/win32/winmsg/window-styles and its neighbours on dialog boxes
// and controls
constexpr auto kSdkNames = std::to_array<SdkName>({
    {"WS_POPUP", 0x80000000},
    {"WS_CHILD", 0x40000000},
    {"WS_MINIMIZE", 0x20000000},
    {"WS_VISIBLE", 0x10000000},
    {"WS_DISABLED", 0x08000000},
    {"WS_CLIPSIBLINGS", 0x04000000},
    {"WS_CLIPCHILDREN", 0x02000000},
    {"WS_MAXIMIZE", 0x01000000},
    {"WS_CAPTION", 0x00C00000},
    {"WS_BORDER", 0x00800000},
    {"WS_DLGFRAME", 0x00400000},
    {"WS_VSCROLL", 0x00200000},
    {"WS_HSCROLL", 0x00100000},
    {"WS_SYSMENU", 0x00080000},
    {"WS_THICKFRAME", 0x00040000},
    {"WS_GROUP", 0x00020000},
    {"WS_TABSTOP", 0x00010000},
    {"WS_MINIMIZEBOX", 0x00020000},
    {"WS_MAXIMIZEBOX", 0x00010000},

    {"WS_EX_DLGMODALFRAME", 0x00000001},
    {"WS_EX_TOPMOST", 0x00000008},
    {"WS_EX_TRANSPARENT", 0x00000020},
    {"WS_EX_TOOLWINDOW", 0x00000080},
    {"WS_EX_WINDOWEDGE", 0x00000100},
    {"WS_EX_CLIENTEDGE", 0x00000200},
    {"WS_EX_CONTROLPARENT", 0x00010000},
    {"WS_EX_STATICEDGE", 0x00020000},
    {"WS_EX_APPWINDOW", 0x00040000},

    {"DS_ABSALIGN", 0x0001},
    {"DS_3DLOOK", 0x0004},
    {"DS_FIXEDSYS", 0x0008},
    {"DS_SETFONT", 0x0040},
    {"DS_MODALFRAME", 0x0080},
    {"DS_SETFOREGROUND", 0x0200},
    {"DS_CONTROL", 0x0400},
    {"DS_CENTER", 0x0800},
    {"DS_SHELLFONT", 0x0048},

    {"ES_LEFT", 0x0000},
    {"ES_CENTER", 0x0001},
    {"ES_RIGHT", 0x0002},
    {"ES_MULTILINE", 0x0004},
    {"ES_AUTOVSCROLL", 0x0040},
    {"ES_AUTOHSCROLL", 0x0080},
    {"ES_NOHIDESEL", 0x0100},
    {"ES_READONLY", 0x0800},
    {"ES_WANTRETURN", 0x1000},

    {"BS_PUSHBUTTON", 0x0000},
    {"BS_DEFPUSHBUTTON", 0x0001},

    {"SS_LEFT", 0x0000},
    {"SS_CENTER", 0x0001},
    {"SS_RIGHT", 0x0002},
    {"SS_LEFTNOWORDWRAP", 0x000C},
    {"SS_NOPREFIX", 0x0080},

    {"PBS_SMOOTH", 0x0001},
    {"PBS_VERTICAL", 0x0004},
    {"PBS_MARQUEE", 0x0008},

    {"IDOK", 1},
    {"IDCANCEL", 2},
    {"IDC_STATIC", 0xFFFFFFFF},

    {"LANG_NEUTRAL", 0x00},
    {"LANG_CHINESE", 0x04},
    {"LANG_ENGLISH", 0x09},
    {"SUBLANG_NEUTRAL", 0x00},
    {"SUBLANG_DEFAULT", 0x01},
    {"SUBLANG_ENGLISH_US", 0x01},
    {"SUBLANG_CHINESE_SIMPLIFIED", 0x02},
});

}  // namespace

std::optional<uint32_t> SdkResourceNumber(std::string_view name) {
  const auto found = std::find_if(kSdkNames.begin(), kSdkNames.end(),
                                  [name](const SdkName& known) { return known.name == name; });
  if (found == kSdkNames.end()) return std::nullopt;
  return found->number;
}

std::map<std::string, uint32_t> ReadResourceNames(std::string_view header) {
  std::map<std::string, uint32_t> names;
  std::istringstream lines{std::string(header)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string directive;
    std::string name;
    std::string value;
    words >> directive >> name >> value;
    const std::optional<uint32_t> number = ParseResourceNumber(value);
    if (directive == "#define" && number) names[name] = *number;
  }
  return names;
}

}  // namespace simulator
