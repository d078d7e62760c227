// Conversion between UTF-16 and the ANSI code page, and languages.
#ifndef SIMULATOR_INCLUDE_WINNLS_H_
#define SIMULATOR_INCLUDE_WINNLS_H_

#include <windef.h>
#include <winnt.h>

#define CP_ACP 0

int WINAPI MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int text_length,
                               LPWSTR buffer, int buffer_length);
int WINAPI WideCharToMultiByte(UINT code_page, DWORD flags, LPCWSTR text, int text_length,
                               LPSTR buffer, int buffer_length, LPCSTR default_char,
                               LPBOOL used_default_char);

LANGID WINAPI GetSystemDefaultLangID();
LANGID WINAPI SetThreadUILanguage(LANGID language);
BOOL WINAPI SetThreadLocale(LCID locale);

#endif  // SIMULATOR_INCLUDE_WINNLS_H_
