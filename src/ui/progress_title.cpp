#include "ui/progress_title.h"

#include <cmath>
#include <limits>

#include "common/product.h"
#include "common/strings.h"
#include "common/times.h"

namespace ui {
namespace {

// Returns 0 for NaN.
template <typename Integer>
Integer Truncated(double number) {
  constexpr Integer kLeast = std::numeric_limits<Integer>::min();
  constexpr Integer kGreatest = std::numeric_limits<Integer>::max();
  if (std::isnan(number)) return 0;
  if (number <= static_cast<double>(kLeast)) return kLeast;
  if (number >= static_cast<double>(kGreatest)) return kGreatest;
  return static_cast<Integer>(number);
}

}  // namespace

std::string PercentText(double percent) { return common::FormatFixed2(percent) + "%"; }

std::string ProgressTitle(const std::string& tool_title, const std::string& stage, double percent) {
  return tool_title + " " + common::kToolVersion + " - " + stage + " " + PercentText(percent);
}

std::string TitleWithTime(const std::string& title, int32_t seconds) {
  return title + "  Time: " + common::FormatDuration(seconds);
}

int32_t BarPosition(double percent) { return Truncated<int32_t>(percent); }

uint64_t TaskBarValue(double percent) { return Truncated<uint64_t>(percent); }

int32_t NextIcon(int32_t& index) {
  // Oddity: seventh icon, see docs/oddities.md.
  constexpr int32_t kIcons = 6;
  const int32_t icon = index;
  index = index + 1 >= kIcons ? 0 : index + 1;
  return icon;
}

}  // namespace ui
