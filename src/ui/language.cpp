#include "ui/language.h"

namespace ui {

uint16_t ResourceLanguage(uint16_t system_language) {
  return system_language == kChinese ? kChinese : kEnglish;
}

bool HasThreadUILanguage(uint32_t platform_id, uint32_t major_version) {
  constexpr uint32_t kWindowsNt = 2;  // VER_PLATFORM_WIN32_NT
  return platform_id == kWindowsNt && major_version >= 6;
}

}  // namespace ui
