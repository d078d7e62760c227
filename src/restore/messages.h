// What the restore run tells the progress dialog: posted window messages and the helpers that post
// them. Posting never blocks and never waits for the dialog.
#ifndef RESTORE_MESSAGES_H_
#define RESTORE_MESSAGES_H_

#include <windows.h>

#include <cstddef>
#include <string>

#include "common/format.h"

namespace restore {

// WPARAM is a RestoreProgress; LPARAM is the heap object that it names, which becomes the
// receiver's.
inline constexpr UINT WM_RESTORE_PROGRESS = WM_USER + 101;
enum class RestoreProgress : WPARAM {
  kLogLine = 0,  // LogLine*
  kPercent = 2,  // ProgressRecord*
};

// WPARAM is a RestoreState; LPARAM is the run's result for kEnded (0 success, 1 failure), else 0.
inline constexpr UINT WM_RESTORE_STATE = WM_USER + 102;
enum class RestoreState : WPARAM {
  kStarted = 1,
  kEnded = 2,
};

struct ProgressRecord {
  std::string stage;  // empty when ReportProgress posts it
  double percent;     // 0.0 to 100.0 in normal use; may be more, infinite or no number
};

// Narrow text in the ANSI code page, always terminated.
struct LogLine {
  char text[2048];
};

// Names the window that the helpers below post to. Called once, before the run starts; until then
// they do nothing.
void SetDialog(HWND dialog);
HWND GetDialog();

// Any thread. A record that cannot be posted is freed.
void ReportProgress(double percent);

// Any thread. Posts the first 2,047 characters of the formatted text.
COMMON_PRINTF_FORMAT(1, 2)
void PostLogLine(const char* format, ...);

// Frees what a WM_RESTORE_PROGRESS carried. Called by the receiver, once it has shown it.
void ReleasePosted(WPARAM wparam, LPARAM lparam);

}  // namespace restore

#endif  // RESTORE_MESSAGES_H_
