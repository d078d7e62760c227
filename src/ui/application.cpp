#include "ui/application.h"

#include <commctrl.h>
#include <objbase.h>

#include "common/architecture.h"
#include "ui/application_module.h"
#include "ui/language.h"
#include "ui/main_window.h"
#include "ui/show_message.h"

namespace ui {
namespace {

// Oddity: language of the worker's message boxes, see docs/oddities.md.
void ChooseLanguage() {
  const LANGID language = ResourceLanguage(::GetSystemDefaultLangID());
  // Not GetWindowsVersion: this is the wide call, with the size of the short structure.
  OSVERSIONINFOEXW version{};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);
  if (!::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version))) {
    ShowMessage(nullptr, MB_ICONERROR, "Get OS Version Failed, Can't Load Language Resources.");
  } else if (HasThreadUILanguage(version.dwPlatformId, version.dwMajorVersion)) {
    ::SetThreadUILanguage(language);
  } else {
    ::SetThreadLocale(language);
  }
}

void InitializeControls() {
  // Loads the window library before the common controls.
  ::DefWindowProcW(nullptr, 0, 0, 0);
  // Oddity: control classes, see docs/oddities.md.
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
  ::InitCommonControlsEx(&classes);
}

}  // namespace

int RunApplication(HINSTANCE instance, int show_command) {
  SetResourceModule(instance);
  ChooseLanguage();
  // Oddity: unused architecture, see docs/oddities.md.
  bool is_x64 = false;
  if (!common::IsNativeX64(is_x64)) {
    ShowMessage(nullptr, MB_ICONERROR, "Get Architecture Failed.");
    return 1;
  }
  static_cast<void>(::CoInitialize(nullptr));
  InitializeControls();
  ApplicationModule module;
  MessageLoop loop;
  module.Init(instance);
  module.AddMessageLoop(&loop);

  MainWindow window(module);
  // Oddity: missing window, see docs/oddities.md.
  if (!window.Create()) ShowMessage(nullptr, MB_ICONERROR, "Create Main Window Failed.");
  ::ShowWindow(window.window(), show_command);
  loop.Run();

  ::DestroyWindow(window.window());
  module.RemoveMessageLoop();
  module.Term();
  ::CoUninitialize();
  // Oddity: exit code, see docs/oddities.md.
  ::ExitProcess(0);
}

}  // namespace ui
