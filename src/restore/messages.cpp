#include "restore/messages.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <memory>
#include <utility>

namespace restore {
namespace {

std::atomic<HWND> the_dialog = nullptr;

// When the message has been posted, the dialog owns the object.
template <typename Posted>
void Post(HWND dialog, RestoreProgress kind, std::unique_ptr<Posted> object) {
  if (::PostMessageA(dialog, WM_RESTORE_PROGRESS, static_cast<WPARAM>(kind),
                     reinterpret_cast<LPARAM>(object.get()))) {
    static_cast<void>(object.release());
  }
}

}  // namespace

void SetDialog(HWND dialog) { the_dialog = dialog; }

HWND GetDialog() { return the_dialog; }

void PostState(HWND dialog, RestoreState state, LPARAM result) {
  ::PostMessageW(dialog, WM_RESTORE_STATE, static_cast<WPARAM>(state), result);
}

void ReportProgress(double percent) {
  const HWND dialog = GetDialog();
  if (dialog == nullptr) return;
  Post(dialog, RestoreProgress::kPercent,
       std::make_unique<ProgressRecord>(ProgressRecord{"", percent}));
}

void PostLogLine(const char* format, ...) {
  const HWND dialog = GetDialog();
  if (dialog == nullptr) return;
  auto line = std::make_unique<LogLine>();
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(line->text, sizeof(line->text), format, arguments);
  va_end(arguments);
  Post(dialog, RestoreProgress::kLogLine, std::move(line));
}

void ReleasePosted(WPARAM wparam, LPARAM lparam) {
  switch (static_cast<RestoreProgress>(wparam)) {
    case RestoreProgress::kLogLine:
      delete reinterpret_cast<LogLine*>(lparam);
      break;
    case RestoreProgress::kPercent:
      delete reinterpret_cast<ProgressRecord*>(lparam);
      break;
  }
}

}  // namespace restore
