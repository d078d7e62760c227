// UTF-8, the ANSI code page of a simulated server, wide text of one unit per character, and UTF-16.
#ifndef SIMULATOR_MODEL_COMMON_UTF8_H_
#define SIMULATOR_MODEL_COMMON_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace simulator {

// What is not UTF-8 becomes U+FFFD, one for each longest piece that could have begun a character.
std::wstring WideFromUtf8(std::string_view text);

// Surrogates and what lies beyond U+10FFFF become U+FFFD, the default character of UTF-8.
std::string Utf8FromWide(std::wstring_view text);

// Surrogates that are no pair become U+FFFD.
std::u16string Utf16FromUtf8(std::string_view text);
std::string Utf8FromUtf16(std::u16string_view text);

// The number of UTF-16 units the text takes on Windows.
size_t Utf16Length(std::string_view utf8);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_UTF8_H_
