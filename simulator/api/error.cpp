// Texts of system error codes.
#include <windows.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/model/common/system_messages.h"
#include "simulator/model/processes/local_heap.h"

using simulator::Call;

DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID, DWORD message_id, DWORD language_id, LPSTR buffer,
                            DWORD size, void*) {
  constexpr DWORD kHonoured =
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
  constexpr DWORD kUserDefault = MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT);
  Call call("FormatMessageA", flags, message_id, language_id);
  if (call.fails()) return 0;
  if (flags != kHonoured) simulator::Unsupported("these flags of FormatMessageA");
  if (language_id != kUserDefault) simulator::Unsupported("this language of FormatMessageA");
  if (buffer == nullptr) return call.Fail(0u, ERROR_NOT_ENOUGH_MEMORY);

  // With this flag the "buffer" is where the new block's address goes.
  char** const block = reinterpret_cast<char**>(buffer);
  *block = nullptr;
  const auto& messages = call.server().system().messages;
  const auto other = messages.find(message_id);
  std::optional<std::string_view> message = simulator::SystemMessage(message_id);
  if (other != messages.end()) message = other->second;
  if (!message) return call.Fail(0u, ERROR_MR_MID_NOT_FOUND);
  const std::string text = simulator::ToAnsi(call, *message) + "\r\n";
  *block = static_cast<char*>(simulator::AllocateLocal(std::max<size_t>(size, text.size() + 1)));
  std::copy(text.begin(), text.end(), *block);
  return call.Succeed(static_cast<DWORD>(text.size()));
}
