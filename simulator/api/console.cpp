// The console of the simulated process.
#include "simulator/model/processes/console.h"

#include <windows.h>

#include "simulator/api/call.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"

using simulator::Call;

namespace {

// As console handles are: not closed by the program, and never a value of the handle table.
HANDLE ConsoleOutput() { return reinterpret_cast<HANDLE>(static_cast<UINT_PTR>(7)); }

}  // namespace

HANDLE WINAPI GetStdHandle(DWORD std_handle) {
  Call call("GetStdHandle", static_cast<int>(std_handle));
  if (call.fails()) return INVALID_HANDLE_VALUE;
  if (std_handle == STD_INPUT_HANDLE || std_handle == STD_ERROR_HANDLE) {
    simulator::Unsupported("a standard handle other than standard output");
  }
  if (std_handle != STD_OUTPUT_HANDLE) {
    return call.Fail(INVALID_HANDLE_VALUE, ERROR_INVALID_HANDLE);
  }
  return call.Succeed(ConsoleOutput());
}

BOOL WINAPI GetConsoleScreenBufferInfo(HANDLE console, CONSOLE_SCREEN_BUFFER_INFO* info) {
  Call call("GetConsoleScreenBufferInfo", console);
  if (call.fails()) return FALSE;
  if (console != ConsoleOutput()) return call.Done(ERROR_INVALID_HANDLE);
  if (info == nullptr) return call.Done(ERROR_INVALID_PARAMETER);
  *info = {};
  info->dwSize = {80, 300};
  info->wAttributes = call.server().console().Attributes();
  info->srWindow = {0, 0, 79, 24};
  info->dwMaximumWindowSize = {80, 25};
  return call.Done(ERROR_SUCCESS);
}

BOOL WINAPI SetConsoleTextAttribute(HANDLE console, WORD attributes) {
  constexpr WORD kColours = 0x00FF;
  Call call("SetConsoleTextAttribute", console, attributes);
  if (call.fails()) return FALSE;
  if (console != ConsoleOutput()) return call.Done(ERROR_INVALID_HANDLE);
  if ((attributes & ~kColours) != 0) simulator::Unsupported("console attributes beyond colours");
  call.server().console().SetAttributes(attributes);
  return call.Done(ERROR_SUCCESS);
}

// Fails for nobody, so it is not traced.
void WINAPI OutputDebugStringA(LPCSTR text) {
  const simulator::PlatformScope scope;
  simulator::Server& server = simulator::Server::Current();
  if (text != nullptr && !server.own_process().HasEnded()) server.console().DebuggerPrint(text);
  ::SetLastError(simulator::kSpoiltLastError);
}
