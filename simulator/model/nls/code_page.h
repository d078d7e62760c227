// The code pages of Windows: conversion between their bytes and Unicode, as MultiByteToWideChar and
// WideCharToMultiByte do it without flags. Supported are UTF-8 and the single-byte and double-byte
// code pages that the C library knows; another one ends the process. Bytes and characters below
// 0x80 are ASCII in all of them. Thread-safe.
//
// What docs/simulator.md names as not backed: characters for private use, and Windows' choice of a
// similar character for one that the code page lacks, in whose place '?' stands here.
#ifndef SIMULATOR_MODEL_NLS_CODE_PAGE_H_
#define SIMULATOR_MODEL_NLS_CODE_PAGE_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace simulator {

inline constexpr UINT kUtf8CodePage = 65001;

// Return the code pages of a Windows server in that language: the one of its A calls, and the one
// in which the system's tools write. 1252 and 437 for 1033.
UINT AnsiCodePageOf(LANGID language);
UINT OemCodePageOf(LANGID language);

// A pair of bytes without a character becomes one default character: U+30FB in code page 932, '?'
// in others. Bytes from 0x80 to 0x9F without a character become the control of that number.
std::wstring WideFromAnsi(std::string_view ansi, UINT code_page);

// A character that the code page lacks becomes '?', or "??" if it takes two units of UTF-16.
std::string AnsiFromWide(std::wstring_view wide, UINT code_page);

// The same between UTF-8 and a code page. Text in code page UTF-8 is returned unchanged.
std::string Utf8FromAnsi(std::string_view ansi, UINT code_page);
std::string AnsiFromUtf8(std::string_view utf8, UINT code_page);

// Returns true if the text is unchanged after conversion to the code page and back; otherwise
// returns false.
bool IsInCodePage(std::string_view utf8, UINT code_page);

// Returns true if the byte is the first of a pair; otherwise returns false. In UTF-8 none is.
bool IsLeadByte(char byte, UINT code_page);

// Returns the length of the longest part at the beginning of the text that has at most `longest`
// bytes and ends with a whole character.
size_t WholeCharacters(std::string_view ansi, size_t longest, UINT code_page);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_NLS_CODE_PAGE_H_
