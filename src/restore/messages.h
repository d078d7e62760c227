// The window messages that the restore run posts to the progress dialog, and the functions that
// post them. Posting never blocks and never waits for the dialog.
#ifndef RESTORE_MESSAGES_H_
#define RESTORE_MESSAGES_H_

#include <windows.h>

#include <cstddef>
#include <string>

#include "common/format.h"

namespace restore {

// WPARAM is a RestoreProgress; LPARAM is the heap object of that kind, which the receiver owns.
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
  double percent;     // 0.0 to 100.0 in normal use; may be greater, infinity or NaN
};

// ANSI text, always zero-terminated.
struct LogLine {
  char text[2048];
};

// Sets the window that the functions below post to. Called once, before the run starts; until then
// these functions do nothing.
void SetDialog(HWND dialog);
HWND GetDialog();

// Posts WM_RESTORE_STATE. Any thread.
void PostState(HWND dialog, RestoreState state, LPARAM result);

// Posts the progress. Any thread. A record that cannot be posted is freed.
void ReportProgress(double percent);

// Any thread. Posts the first 2,047 characters of the formatted text.
COMMON_PRINTF_FORMAT(1, 2)
void PostLogLine(const char* format, ...);

// Frees the object of a WM_RESTORE_PROGRESS message. Called by the receiver when it has shown it.
void ReleasePosted(WPARAM wparam, LPARAM lparam);

}  // namespace restore

#endif  // RESTORE_MESSAGES_H_
