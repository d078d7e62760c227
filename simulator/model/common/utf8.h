// Conversion between UTF-8, wide text with one unit per character, and UTF-16.
#ifndef SIMULATOR_MODEL_COMMON_UTF8_H_
#define SIMULATOR_MODEL_COMMON_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace simulator {

// Replaces invalid UTF-8 with U+FFFD, one for each maximal subpart of an ill-formed sequence.
std::wstring WideFromUtf8(std::string_view text);

// Replaces surrogates and code points above U+10FFFF with U+FFFD, the default character of UTF-8.
std::string Utf8FromWide(std::wstring_view text);

// Replaces unpaired surrogates with U+FFFD.
std::u16string Utf16FromUtf8(std::string_view text);
std::string Utf8FromUtf16(std::u16string_view text);

// Returns the number of UTF-16 units that the text takes on Windows.
size_t Utf16Length(std::string_view utf8);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_UTF8_H_
