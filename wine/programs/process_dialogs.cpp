#include "wine/programs/process_dialogs.h"

#include <iterator>
#include <string_view>

namespace simulator {
namespace {

struct Search {
  DWORD process;
  std::vector<HWND> found;
};

bool IsDialog(HWND window) {
  wchar_t name[16] = {};
  return ::GetClassNameW(window, name, static_cast<int>(std::size(name))) != 0 &&
         std::wstring_view(name) == L"#32770";
}

BOOL CALLBACK Visit(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD owner = 0;
  ::GetWindowThreadProcessId(window, &owner);
  if (owner == search.process && ::IsWindowVisible(window) && IsDialog(window)) {
    search.found.push_back(window);
  }
  return TRUE;
}

}  // namespace

std::vector<HWND> DialogsOf(DWORD process) {
  Search search{process, {}};
  ::EnumWindows(&Visit, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

}  // namespace simulator
