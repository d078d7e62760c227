#include "ui/main_window.h"

#include <commctrl.h>

#include <string_view>
#include <utility>

#include "common/code_page.h"
#include "common/product.h"
#include "common/win/child_process_list.h"
#include "logger/b_logger.h"
#include "restore/messages.h"
#include "restore/run.h"
#include "thread/b_thread.h"
#include "ui/progress_title.h"
#include "ui/restart.h"
#include "ui/show_message.h"

namespace ui {
namespace {

constexpr UINT_PTR kClockTimer = 1001;
constexpr UINT kClockMilliseconds = 1000;
constexpr UINT_PTR kIconTimer = 1002;
constexpr UINT kIconMilliseconds = 200;

constexpr int kFullBar = 100;

HICON LoadNumberedIcon(HINSTANCE module, int number) {
  return ::LoadIconW(module, MAKEINTRESOURCEW(number));
}

// Centers a window on its parent, or on the work area of the desktop if it has none.
void Center(HWND window) {
  RECT area{};
  RECT own{};
  const HWND parent = ::GetParent(window);
  const BOOL has_area = parent != nullptr ? ::GetWindowRect(parent, &area)
                                          : ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  if (!has_area || !::GetWindowRect(window, &own)) return;
  const int x = (area.left + area.right - (own.right - own.left)) / 2;
  const int y = (area.top + area.bottom - (own.bottom - own.top)) / 2;
  ::SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

INT_PTR BrushResult(int stock_object) {
  return reinterpret_cast<INT_PTR>(::GetStockObject(stock_object));
}

// Sets the colours of the note. Returns 0, which keeps the default colours, for every other
// control.
INT_PTR ColorStatic(HDC context, HWND control) {
  constexpr COLORREF kBlue = RGB(0, 0, 255);
  if (::GetDlgCtrlID(control) != IDC_NOTE) return 0;
  ::SetTextColor(context, kBlue);
  ::SetBkMode(context, TRANSPARENT);
  return BrushResult(NULL_BRUSH);
}

// Oddity: colours of the log box, see docs/oddities.md.
INT_PTR ColorEdit(HDC context, HWND control) {
  if (::GetDlgCtrlID(control) != IDC_LOG) return 0;
  ::SetBkColor(context, RGB(255, 255, 255));
  ::SetTextColor(context, RGB(0, 0, 0));
  return BrushResult(WHITE_BRUSH);
}

// Shows a logged message as a line of the log box.
void ShowLogged(std::string_view message) {
  if (message.ends_with('\n')) message.remove_suffix(1);
  restore::PostLogLine("%.*s\r\n", static_cast<int>(message.size()), message.data());
}

}  // namespace

INT_PTR MainWindow::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_INITDIALOG:
      OnInitDialog();
      return TRUE;
    case restore::WM_RESTORE_STATE:
      if (wparam == static_cast<WPARAM>(restore::RestoreState::kStarted)) OnRunStarted();
      if (wparam == static_cast<WPARAM>(restore::RestoreState::kEnded)) OnRunEnded(lparam);
      return TRUE;
    case restore::WM_RESTORE_PROGRESS:
      OnProgress(wparam, lparam);
      return TRUE;
    case WM_COMMAND:
      if (LOWORD(wparam) == IDCANCEL) OnCancel();
      return LOWORD(wparam) == IDCANCEL || LOWORD(wparam) == IDOK;
    case WM_TIMER:
      OnTimer(wparam);
      return TRUE;
    case WM_CTLCOLORSTATIC:
      return ColorStatic(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
    case WM_CTLCOLOREDIT:
      return ColorEdit(reinterpret_cast<HDC>(wparam), reinterpret_cast<HWND>(lparam));
    case WM_DESTROY:
      OnDestroy();
      return TRUE;
    default:
      return FALSE;
  }
}

void MainWindow::OnInitDialog() {
  restore::SetDialog(window());
  if (module_.message_loop() != nullptr) module_.message_loop()->SetDialog(window());
  Center(window());
  ShowIcon(LoadNumberedIcon(module_.resources(), IDI_TOOL));
  int number = IDI_TURNING_1;
  for (HICON& icon : turning_icons_) icon = LoadNumberedIcon(module_.resources(), number++);
  progress_bar_ = ::GetDlgItem(window(), IDC_PROGRESS);
  log_ = ::GetDlgItem(window(), IDC_LOG);
  note_ = ::GetDlgItem(window(), IDC_NOTE);
  ::SendMessageW(progress_bar_, PBM_SETRANGE, 0, MAKELPARAM(0, kFullBar));
  StartRestore();
  // Oddity: stage in the title, see docs/oddities.md.
  SetProgress("RestoreDisks", 0.0);
}

void MainWindow::StartRestore() {
  auto logger = std::make_unique<logger::BLogger>(common::kLogName, "");
  logger->SetObserver(&ShowLogged);
  logger_ = std::move(logger);
  logger_->Info("========= %s %s. =========", common::kToolTitle, common::kToolVersion);
  logger_->Info("Vantoro Restore Begin");

  thread_ = std::make_unique<thread::BThread>();
  auto start = std::make_unique<restore::RunStart>(restore::RunStart{window(), logger_.get()});
  if (thread_->Start(&restore::RestoreThreadProc, start.get())) {
    static_cast<void>(start.release());  // owned by the thread
  } else {
    logger_->Error("Vantoro Restore Thread Start Failed.");
    restore::PostState(window(), restore::RestoreState::kEnded, 1);
  }
}

void MainWindow::OnRunStarted() {
  is_running_ = 1;
  ::SendMessageW(progress_bar_, PBM_SETSTATE, PBST_NORMAL, 0);
  if (module_.state().HasTaskBarProgress() && !task_bar_) {
    task_bar_ = std::make_unique<ProgressTaskBarHelper>(window(), module_.state());
    if (!task_bar_->Initialize()) task_bar_.reset();
  }
  if (task_bar_) task_bar_->SetState(TBPF_NORMAL);
  ::SetTimer(window(), kClockTimer, kClockMilliseconds, nullptr);
  ::SetTimer(window(), kIconTimer, kIconMilliseconds, nullptr);
}

void MainWindow::OnRunEnded(LPARAM run_result) {
  is_running_ = 0;
  StopTimers();
  UpdateTitle();
  if (run_result != 0) {
    ::SendMessageW(progress_bar_, PBM_SETSTATE, PBST_ERROR, 0);
    if (task_bar_) task_bar_->SetState(TBPF_ERROR);
    ShowMessage(window(), MB_ICONWARNING, "%s", LoadResString(IDS_NOT_FINISHED).c_str());
    ::PostQuitMessage(1);
    return;
  }
  SetProgress("Finished", 100.0);
  OfferRestart(window());
  ::PostQuitMessage(0);
}

void MainWindow::OnProgress(WPARAM kind, LPARAM posted) {
  if (posted == 0) return;
  if (kind == static_cast<WPARAM>(restore::RestoreProgress::kLogLine)) {
    AppendToLog(reinterpret_cast<const restore::LogLine*>(posted)->text);
  }
  if (kind == static_cast<WPARAM>(restore::RestoreProgress::kPercent)) {
    // Oddity: stage in the title, see docs/oddities.md.
    SetProgress(module_.state().ProgressStage(),
                reinterpret_cast<const restore::ProgressRecord*>(posted)->percent);
  }
  restore::ReleasePosted(kind, posted);
}

void MainWindow::OnCancel() {
  // Oddity: cancel at any time, see docs/oddities.md.
  if (ShowMessage(window(), MB_OKCANCEL, "%s", LoadResString(IDS_CONFIRM_CANCEL).c_str()) == IDOK) {
    ::PostQuitMessage(0);
  }
}

void MainWindow::OnTimer(WPARAM timer) {
  if (timer == kClockTimer) {
    ++seconds_;
    UpdateTitle();
  }
  if (timer == kIconTimer) {
    const int32_t icon = NextIcon(module_.state().icon_index());
    ShowIcon(turning_icons_.at(static_cast<size_t>(icon)));
  }
}

void MainWindow::OnDestroy() {
  StopTimers();
  // Oddity: closed child handles, see docs/oddities.md.
  common::win::ChildProcessList::Instance().ForEach(
      [](HANDLE child) { ::TerminateProcess(child, 1); });
}

void MainWindow::AppendToLog(const char* text) {
  const std::wstring wide = common::NarrowToWide(text);
  const int length = ::GetWindowTextLengthW(log_);
  ::SendMessageW(log_, EM_SETSEL, static_cast<WPARAM>(length), length);
  ::SendMessageW(log_, EM_SCROLLCARET, 0, 0);
  ::SendMessageW(log_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(wide.c_str()));
}

void MainWindow::SetProgress(const std::string& stage, double percent) {
  title_ = ProgressTitle(LoadResString(IDS_TOOL_TITLE), stage, percent);
  UpdateTitle();
  ::SendMessageW(progress_bar_, PBM_SETPOS, static_cast<WPARAM>(BarPosition(percent)), 0);
  if (task_bar_) task_bar_->SetValue(TaskBarValue(percent), kFullBar);
}

void MainWindow::UpdateTitle() {
  ::SetWindowTextA(window(), TitleWithTime(title_, seconds_).c_str());
}

void MainWindow::ShowIcon(HICON icon) {
  ::SendMessageW(window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
  ::SendMessageW(window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon));
}

void MainWindow::StopTimers() {
  ::KillTimer(window(), kClockTimer);
  ::KillTimer(window(), kIconTimer);
}

}  // namespace ui
