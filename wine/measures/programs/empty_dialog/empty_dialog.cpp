// The least that shows a dialog with the libraries that the program has: what the program's start
// is compared with.
#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <shlobj.h>
#include <shlwapi.h>

namespace {

// Called by nobody: that they are named here lets their libraries be loaded.
using Anything = void (*)();
const volatile Anything kOfLibraries[] = {reinterpret_cast<Anything>(&::GetStockObject),
                                          reinterpret_cast<Anything>(&::OpenProcessToken),
                                          reinterpret_cast<Anything>(&::PathFileExistsA),
                                          reinterpret_cast<Anything>(&::SHGetSpecialFolderPathA)};

INT_PTR CALLBACK Procedure(HWND /*dialog*/, UINT message, WPARAM /*wparam*/, LPARAM /*lparam*/) {
  return message == WM_INITDIALOG;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPWSTR /*command_line*/,
                    int show_command) {
  if (kOfLibraries[0] == nullptr) return 1;
  static_cast<void>(::CoInitialize(nullptr));
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
  ::InitCommonControlsEx(&classes);
  const HWND dialog = ::CreateDialogParamW(instance, MAKEINTRESOURCEW(1), nullptr, &Procedure, 0);
  ::ShowWindow(dialog, show_command);
  MSG message{};
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (::IsDialogMessageW(dialog, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return 0;
}
