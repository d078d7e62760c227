// What the dialog makes of progress: texts for its title, positions for its bars, icons. Pure.
#ifndef UI_PROGRESS_TITLE_H_
#define UI_PROGRESS_TITLE_H_

#include <cstdint>
#include <string>

namespace ui {

// "37.50%". Any number at all may come in: what the format gives for it stands, "inf%" or "-nan%",
// of a huge one its first 63 characters.
std::string PercentText(double percent);

// "Vantoro Restore Tool 1.1.0.1 - Progress 37.50%", from the tool's title in its language.
std::string ProgressTitle(const std::string& tool_title, const std::string& stage, double percent);

// The title with the time since the run's start behind it: "  Time: 1m5s".
std::string TitleWithTime(const std::string& title, int32_t seconds);

// The percent truncated toward zero. What no integer can hold becomes the nearest one, and 0 is
// what is no number. The bar itself stops at its ends.
int32_t BarPosition(double percent);

// As BarPosition, for the task bar, whose values have no sign.
uint64_t TaskBarValue(double percent);

// The icons that turn while the run lasts: six of them, in a circle. Gives the number of the one to
// show, counted from 0, and moves `index`, which starts at kFirstIcon, to the next.
inline constexpr int32_t kFirstIcon = 3;
int32_t NextIcon(int32_t& index);

}  // namespace ui

#endif  // UI_PROGRESS_TITLE_H_
