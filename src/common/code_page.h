// Conversion between wide text and the ANSI code page.
#ifndef COMMON_CODE_PAGE_H_
#define COMMON_CODE_PAGE_H_

#include <string>

namespace common {

// Both convert the whole input by its length and give the result up to its first zero unit; empty
// when the system refuses the conversion. What the code page lacks comes out as the system's
// default character. The first call of either switches the C runtime's locale, all categories, to
// "chs" for good. Any thread.
// https://learn.microsoft.com/windows/win32/api/stringapiset/nf-stringapiset-widechartomultibyte
std::string WideToNarrow(const std::wstring& wide);
std::wstring NarrowToWide(const std::string& narrow);

}  // namespace common

#endif  // COMMON_CODE_PAGE_H_
