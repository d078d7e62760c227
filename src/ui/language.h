// Which of the two languages of the program's resources it speaks, and how it chooses it. Pure.
#ifndef UI_LANGUAGE_H_
#define UI_LANGUAGE_H_

#include <cstdint>

namespace ui {

// LANGIDs.
inline constexpr uint16_t kEnglish = 1033;  // United States
inline constexpr uint16_t kChinese = 2052;  // PRC

// Chinese on a system of exactly that language, English on every other one, those of other Chinese
// languages among them.
uint16_t ResourceLanguage(uint16_t system_language);

// Whether the thread's user-interface language is set; where that is not known, before Windows
// Vista, its locale is. The arguments are those of the version record.
// https://learn.microsoft.com/windows/win32/api/winnls/nf-winnls-setthreaduilanguage
bool HasThreadUILanguage(uint32_t platform_id, uint32_t major_version);

}  // namespace ui

#endif  // UI_LANGUAGE_H_
