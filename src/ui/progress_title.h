// The presentation of progress: title texts, bar positions, icons. Pure.
#ifndef UI_PROGRESS_TITLE_H_
#define UI_PROGRESS_TITLE_H_

#include <cstdint>
#include <string>

namespace ui {

// "37.50%". Accepts every value: infinity and NaN give the text of the C runtime, such as "inf%" or
// "-nan%"; a longer number is truncated after 63 characters.
std::string PercentText(double percent);

// "Vantoro Restore Tool 1.1.0.1 - Progress 37.50%". `tool_title` is the title in the dialog's
// language.
std::string ProgressTitle(const std::string& tool_title, const std::string& stage, double percent);

// The title followed by the elapsed time: "  Time: 1m5s".
std::string TitleWithTime(const std::string& title, int32_t seconds);

// The percent truncated toward zero. A value outside the range of the type becomes the nearest
// limit, NaN becomes 0. The progress bar limits the position to its own range.
int32_t BarPosition(double percent);

// Like BarPosition, for the taskbar, whose values are unsigned.
uint64_t TaskBarValue(double percent);

// The animation of six icons that is shown during the run. Returns the zero-based number of the
// icon to show and advances `index`, which starts at kFirstIcon.
inline constexpr int32_t kFirstIcon = 3;
int32_t NextIcon(int32_t& index);

}  // namespace ui

#endif  // UI_PROGRESS_TITLE_H_
