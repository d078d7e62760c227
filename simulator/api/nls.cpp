// Conversion between wide text and the ANSI code page, and languages.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "simulator/api/call.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace {

using simulator::Call;

// `length` units, or up to and with the terminator when it is negative.
template <typename Unit>
std::basic_string<Unit> Counted(const Unit* text, int length) {
  if (text == nullptr) return {};
  if (length >= 0) return {text, static_cast<size_t>(length)};
  return {text, std::char_traits<Unit>::length(text) + 1};
}

template <typename From, typename To>
bool AreArgumentsWrong(const From* text, int text_length, const To* buffer, int buffer_length) {
  return text == nullptr || text_length == 0 || buffer_length < 0 ||
         (buffer == nullptr && buffer_length != 0) ||
         static_cast<const void*>(text) == static_cast<const void*>(buffer);
}

// Copies what fits; the answer of either conversion.
template <typename Unit>
int Deliver(const Call& call, const std::basic_string<Unit>& converted, Unit* buffer,
            int buffer_length) {
  if (buffer_length == 0) return call.Succeed(static_cast<int>(converted.size()));
  const size_t room = static_cast<size_t>(buffer_length);
  std::copy_n(converted.begin(), std::min(room, converted.size()), buffer);
  if (converted.size() > room) return call.Fail(0, ERROR_INSUFFICIENT_BUFFER);
  return call.Succeed(static_cast<int>(converted.size()));
}

void RefuseOtherConversions(UINT code_page, DWORD flags) {
  if (code_page != CP_ACP) simulator::Unsupported("a code page other than CP_ACP");
  if (flags != 0) simulator::Unsupported("a flag of a code page conversion");
}

}  // namespace

int WINAPI MultiByteToWideChar(UINT code_page, DWORD flags, LPCSTR text, int text_length,
                               LPWSTR buffer, int buffer_length) {
  const std::string counted = Counted(text, text_length);
  Call call("MultiByteToWideChar", code_page, flags, counted, text_length, buffer_length);
  if (call.fails()) return 0;
  RefuseOtherConversions(code_page, flags);
  if (AreArgumentsWrong(text, text_length, buffer, buffer_length)) {
    return call.Fail(0, ERROR_INVALID_PARAMETER);
  }
  const UINT ansi_code_page = call.server().system().ansi_code_page;
  return Deliver(call, simulator::WideFromAnsi(counted, ansi_code_page), buffer, buffer_length);
}

int WINAPI WideCharToMultiByte(UINT code_page, DWORD flags, LPCWSTR text, int text_length,
                               LPSTR buffer, int buffer_length, LPCSTR default_char,
                               LPBOOL used_default_char) {
  const std::wstring counted = Counted(text, text_length);
  Call call("WideCharToMultiByte", code_page, flags, counted, text_length, buffer_length);
  if (call.fails()) return 0;
  RefuseOtherConversions(code_page, flags);
  if (default_char != nullptr || used_default_char != nullptr) {
    simulator::Unsupported("the default character of WideCharToMultiByte");
  }
  if (AreArgumentsWrong(text, text_length, buffer, buffer_length)) {
    return call.Fail(0, ERROR_INVALID_PARAMETER);
  }
  const UINT ansi_code_page = call.server().system().ansi_code_page;
  return Deliver(call, simulator::AnsiFromWide(counted, ansi_code_page), buffer, buffer_length);
}

// Cannot fail, so it is neither numbered nor traced.
LANGID WINAPI GetSystemDefaultLangID() { return simulator::Server::Current().system().language; }

LANGID WINAPI SetThreadUILanguage(LANGID language) {
  constexpr DWORD kVista = 6;
  if (language == 0) simulator::Unsupported("SetThreadUILanguage to what the console can show");
  const Call call("SetThreadUILanguage", language);
  if (call.fails()) return 0;
  simulator::Server& server = call.server();
  if (server.system().major_version < kVista) {
    simulator::Unsupported("SetThreadUILanguage to a language before Windows Vista");
  }
  server.threads().State().ui_language = language;
  return call.Succeed(language);
}

BOOL WINAPI SetThreadLocale(LCID locale) {
  constexpr LCID kLanguage = 0xFFFF;
  constexpr LCID kSort = 0xF0000;
  constexpr LANGID kPrimary = 0x3FF;
  const Call call("SetThreadLocale", locale);
  if (call.fails()) return FALSE;
  if ((locale & ~(kLanguage | kSort)) != 0) return call.Done(ERROR_INVALID_PARAMETER);
  if ((locale & kSort) != 0) simulator::Unsupported("SetThreadLocale: a sort order");
  const LANGID language = static_cast<LANGID>(locale);
  if ((language & kPrimary) == 0)
    simulator::Unsupported("SetThreadLocale: a locale without a language");
  call.server().threads().State().locale = language;
  return call.Succeed(TRUE);
}
