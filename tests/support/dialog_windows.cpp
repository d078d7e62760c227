#include "support/dialog_windows.h"

#include <commctrl.h>
#include <objbase.h>

#include <array>
#include <utility>

#include "common/win/child_process_list.h"
#include "support/hang.h"
#include "support/process.h"
#include "ui/show_message.h"

namespace tests {
namespace {

constexpr UINT kPersonMilliseconds = 10;
constexpr int kBoxText = 0xFFFF;  // the id of a message box's text

size_t Children() {
  size_t count = 0;
  common::win::ChildProcessList::Instance().ForEach([&](HANDLE) { ++count; });
  return count;
}

HANDLE LastChild() {
  HANDLE last = nullptr;
  common::win::ChildProcessList::Instance().ForEach([&](HANDLE child) { last = child; });
  return last;
}

std::wstring SearchPath() {
  std::wstring path(::GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
  path.resize(::GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
  return path;
}

}  // namespace

HeldTools::HeldTools() : path_(SearchPath()) {
  std::array<wchar_t, MAX_PATH> folder{};
  ::GetFullPathNameW(HELD_TOOLS_DIR, static_cast<DWORD>(folder.size()), folder.data(), nullptr);
  ::SetEnvironmentVariableW(L"PATH", (std::wstring(folder.data()) + L";" + path_).c_str());
}

HeldTools::~HeldTools() { ::SetEnvironmentVariableW(L"PATH", path_.c_str()); }

std::wstring TextOf(HWND window) {
  std::array<wchar_t, 4096> text{};
  ::SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

HWND BoxOf(HWND owner) {
  const HWND box = ::GetLastActivePopup(owner);
  return box != owner && ::IsWindowVisible(box) ? box : nullptr;
}

MessageBoxSeen Look(HWND box) {
  MessageBoxSeen seen{TextOf(box), TextOf(::GetDlgItem(box, kBoxText)), {}};
  for (const int id : {IDOK, IDCANCEL, IDABORT, IDRETRY, IDIGNORE, IDYES, IDNO}) {
    if (::IsWindowVisible(::GetDlgItem(box, id))) seen.buttons.push_back(id);
  }
  return seen;
}

// Sees when the run has started and ended.
class WindowsDialogTest::Window : public ui::MainWindow {
 public:
  Window(ui::ApplicationModule& module, bool ticking) : MainWindow(module), ticking_(ticking) {}

  INT_PTR HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) override {
    const INT_PTR result = MainWindow::HandleMessage(message, wparam, lparam);
    if (message == restore::WM_RESTORE_STATE) {
      const auto state = static_cast<restore::RestoreState>(wparam);
      if (state == restore::RestoreState::kStarted) OnStarted();
      if (state == restore::RestoreState::kEnded) ++ends;
    }
    return result;
  }

  bool is_started = false;
  bool had_timers = false;
  int ends = 0;

 private:
  void OnStarted() {
    is_started = true;
    if (ticking_) return;
    const bool had_clock = ::KillTimer(window(), 1001);
    const bool had_icons = ::KillTimer(window(), 1002);
    had_timers = had_clock && had_icons;
  }

  const bool ticking_;
};

WindowsDialogTest* WindowsDialogTest::current_ = nullptr;

WindowsDialogTest::WindowsDialogTest() {
  current_ = this;
  static_cast<void>(::CoInitialize(nullptr));
  const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
  ::InitCommonControlsEx(&classes);
  ForgetProcess();
  ui::SetResourceModule(::GetModuleHandleW(nullptr));
  module_.Init(::GetModuleHandleW(nullptr));
  module_.AddMessageLoop(&loop_);
  // Looks at the screen in whatever message loop runs, a message box's own as well.
  person_ = ::SetTimer(nullptr, 0, kPersonMilliseconds, &OnTick);
}

WindowsDialogTest::~WindowsDialogTest() {
  if (window_ != nullptr) EndRun();
  ::KillTimer(nullptr, person_);
  ForgetProcess();
  ::CoUninitialize();
  current_ = nullptr;
}

HWND WindowsDialogTest::Show(bool ticking) {
  const size_t children = Children();
  window_ = std::make_unique<Window>(module_, ticking);
  if (!window_->Create()) {
    ADD_FAILURE() << "no dialog";
    return nullptr;
  }
  ::ShowWindow(window_->window(), SW_SHOWNORMAL);
  PumpUntil([&] { return window_->is_started && Children() > children; });
  return window_->window();
}

HWND WindowsDialogTest::Control(int id) const { return ::GetDlgItem(window_->window(), id); }

bool WindowsDialogTest::had_timers() const { return window_->had_timers; }

void WindowsDialogTest::PumpUntil(const std::function<bool()>& holds) {
  const ULONGLONG begin = ::GetTickCount64();
  while (!holds()) {
    if (::GetTickCount64() - begin > kHangMilliseconds) {
      FAIL() << "what was waited for did not come";
    }
    ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kPersonMilliseconds, QS_ALLINPUT);
    Pump();
  }
}

void WindowsDialogTest::Pump() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      quit_code_ = static_cast<int>(message.wParam);
    } else if (!::IsDialogMessageW(window_->window(), &message)) {
      ::TranslateMessage(&message);
      ::DispatchMessageW(&message);
    }
  }
}

void WindowsDialogTest::PostState(restore::RestoreState state, LPARAM result) {
  if (state == restore::RestoreState::kEnded) ++posted_ends_;
  ::PostMessageW(window_->window(), restore::WM_RESTORE_STATE, static_cast<WPARAM>(state), result);
}

void CALLBACK WindowsDialogTest::OnTick(HWND, UINT, UINT_PTR, DWORD) {
  if (current_ != nullptr && current_->window_ != nullptr) current_->AnswerBox();
}

void WindowsDialogTest::AnswerBox() {
  const HWND box = BoxOf(window_->window());
  if (box == nullptr || box == answered_) return;
  answered_ = box;
  boxes_.push_back(Look(box));
  ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(answer_ ? answer_(boxes_.back()) : IDCANCEL),
                 0);
}

// The object lives until the run has ended, and so does its window, which is told of the end.
void WindowsDialogTest::EndRun() {
  answer_ = nullptr;
  if (window_->window() == nullptr) return;
  ::TerminateProcess(LastChild(), 1);
  PumpUntil([&] { return window_->ends == posted_ends_ + 1; });
  ::DestroyWindow(window_->window());
  Pump();
}

}  // namespace tests
