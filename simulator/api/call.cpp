#include "simulator/api/call.h"

#include <charconv>
#include <utility>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/processes/own_process.h"

namespace {

thread_local DWORD last_error = ERROR_SUCCESS;

}  // namespace

DWORD WINAPI GetLastError() { return last_error; }

void WINAPI SetLastError(DWORD error) { last_error = error; }

namespace simulator {

std::optional<uint32_t> EnterCall(Server& server, const char* name, std::string arguments,
                                  uint32_t ended_code) {
  const OwnProcess& process = server.own_process();
  if (!process.HasEnded()) server.calls().TellWatcher(name, arguments);
  if (process.HasEnded()) return ended_code;
  return server.calls().Enter(name, std::move(arguments));
}

void UnsupportedCall(std::string_view what) { Unsupported(what); }

std::string TraceText(std::nullptr_t) { return "null"; }

std::string TraceText(const char* text) {
  return text == nullptr ? TraceText(nullptr) : TraceText(std::string(text));
}

std::string TraceText(const std::string& text) { return '"' + text + '"'; }

std::string TraceText(const wchar_t* text) {
  return text == nullptr ? TraceText(nullptr) : TraceText(Utf8FromWide(text));
}

std::string TraceText(int64_t number) { return std::to_string(number); }
std::string TraceText(uint64_t number) { return std::to_string(number); }
std::string TraceText(int number) { return std::to_string(number); }
std::string TraceText(DWORD number) { return std::to_string(number); }

std::string TraceText(const void* pointer) {
  if (pointer == nullptr) return TraceText(nullptr);
  char digits[2 * sizeof(pointer)];
  const std::to_chars_result end =
      std::to_chars(digits, digits + sizeof(digits), reinterpret_cast<uintptr_t>(pointer), 16);
  return "0x" + std::string(digits, end.ptr);
}

Call::Call(Entry entry)
    : server_(Server::Current()),
      fault_(EnterCall(server_, entry.name, std::move(entry.arguments), ERROR_PROCESS_ABORTED)) {
  if (fault_) ::SetLastError(*fault_);
}

BOOL Call::Done(DWORD error) const {
  ::SetLastError(error == ERROR_SUCCESS ? kSpoiltLastError : error);
  return error == ERROR_SUCCESS ? TRUE : FALSE;
}

}  // namespace simulator
