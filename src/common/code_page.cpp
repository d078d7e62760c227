#include "common/code_page.h"

#include <windows.h>

#include <climits>
#include <clocale>

namespace common {
namespace {

// Oddity: locale of the C runtime, see docs/oddities.md.
void SwitchLocaleOnce() {
  [[maybe_unused]] static const bool switched = std::setlocale(LC_ALL, "chs") != nullptr;
}

// The conversion functions take the length as an int.
bool Convertible(size_t length) { return length != 0 && length <= INT_MAX; }

}  // namespace

std::string WideToNarrow(const std::wstring& wide) {
  SwitchLocaleOnce();
  if (!Convertible(wide.size())) return {};
  const int length = static_cast<int>(wide.size());
  const int needed =
      ::WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  if (needed <= 0) return {};
  std::string narrow(static_cast<size_t>(needed), '\0');
  const int written = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), length, narrow.data(), needed,
                                            nullptr, nullptr);
  narrow.resize(static_cast<size_t>(written > 0 ? written : 0));
  return narrow.c_str();
}

std::wstring NarrowToWide(const std::string& narrow) {
  SwitchLocaleOnce();
  if (!Convertible(narrow.size())) return {};
  const int length = static_cast<int>(narrow.size());
  const int needed = ::MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, nullptr, 0);
  if (needed <= 0) return {};
  std::wstring wide(static_cast<size_t>(needed), L'\0');
  const int written = ::MultiByteToWideChar(CP_ACP, 0, narrow.data(), length, wide.data(), needed);
  wide.resize(static_cast<size_t>(written > 0 ? written : 0));
  return wide.c_str();
}

}  // namespace common
