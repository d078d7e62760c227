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

// Of this thread: the worker's boxes have captions in the system's language.
void ChooseLanguage() {
  const LANGID language = ResourceLanguage(::GetSystemDefaultLangID());
  OSVERSIONINFOEXW version{};
  version.dwOSVersionInfoSize = sizeof(OSVERSIONINFOW);  // what stands behind is not needed
  if (!::GetVersionExW(reinterpret_cast<LPOSVERSIONINFOW>(&version))) {
    ShowMessage(nullptr, MB_ICONERROR, "Get OS Version Failed, Can't Load Language Resources.");
  } else if (HasThreadUILanguage(version.dwPlatformId, version.dwMajorVersion)) {
    ::SetThreadUILanguage(language);
  } else {
    ::SetThreadLocale(language);
  }
}

void InitializeControls() {
  // Makes sure that the window library is there before the controls.
  ::DefWindowProcW(nullptr, 0, 0, 0);
  INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
  ::InitCommonControlsEx(&classes);
}

}  // namespace

int RunApplication(HINSTANCE instance, int show_command) {
  SetResourceModule(instance);
  ChooseLanguage();
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
  // Without a window the program still waits, for somebody to end it.
  if (!window.Create()) ShowMessage(nullptr, MB_ICONERROR, "Create Main Window Failed.");
  ::ShowWindow(window.window(), show_command);
  loop.Run();

  ::DestroyWindow(window.window());
  module.RemoveMessageLoop();
  module.Term();
  ::CoUninitialize();
  ::ExitProcess(0);
}

}  // namespace ui
