// Conversion between wide text and ANSI text.
#ifndef COMMON_CODE_PAGE_H_
#define COMMON_CODE_PAGE_H_

#include <string>

namespace common {

// Both convert the whole input by its length and return the result up to its first zero unit; empty
// if the conversion fails. Characters that the code page does not have become the system's default
// character. The first call of either sets all categories of the C runtime's locale to "chs" until
// the process ends. Any thread.
// https://learn.microsoft.com/windows/win32/api/stringapiset/nf-stringapiset-widechartomultibyte
std::string WideToNarrow(const std::wstring& wide);
std::wstring NarrowToWide(const std::string& narrow);

}  // namespace common

#endif  // COMMON_CODE_PAGE_H_
