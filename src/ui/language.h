// The choice between the two languages of the program's resources. Pure.
#ifndef UI_LANGUAGE_H_
#define UI_LANGUAGE_H_

#include <cstdint>

namespace ui {

// LANGIDs.
inline constexpr uint16_t kEnglish = 1033;  // United States
inline constexpr uint16_t kChinese = 2052;  // PRC

// Returns Chinese if the system language is exactly Chinese (PRC), otherwise English, including for
// the other Chinese languages.
uint16_t ResourceLanguage(uint16_t system_language);

// Returns true if the thread's user-interface language is to be set; false before Windows Vista,
// where the thread's locale is set instead. The arguments are fields of the version record.
// https://learn.microsoft.com/windows/win32/api/winnls/nf-winnls-setthreaduilanguage
bool HasThreadUILanguage(uint32_t platform_id, uint32_t major_version);

}  // namespace ui

#endif  // UI_LANGUAGE_H_
