// Threads and critical sections. Only CreateThread can fail; the others are neither numbered nor
// traced.
#include "simulator/model/processes/threads.h"

#include <windows.h>

#include <chrono>
#include <thread>

#include "simulator/api/call.h"
#include "simulator/model/common/clock.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/server.h"

using simulator::Call;
using simulator::PlatformScope;
using simulator::Server;
using simulator::Unsupported;

HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stack_size,
                           LPTHREAD_START_ROUTINE start_address, LPVOID parameter,
                           DWORD creation_flags, LPDWORD thread_id) {
  if (attributes != nullptr) Unsupported("CreateThread: security attributes");
  if (stack_size != 0) Unsupported("CreateThread: a stack size");
  if (start_address == nullptr) Unsupported("CreateThread: nothing to run");
  if (creation_flags != 0) Unsupported("CreateThread: creation flags");
  if (thread_id != nullptr) Unsupported("CreateThread: a thread id");
  const Call call("CreateThread", parameter);
  if (call.fails()) return nullptr;
  Server& server = call.server();
  return call.Succeed(
      server.handles().Insert(server.threads().Start(start_address, parameter), false));
}

// Moves the steered clock, and lets other threads run: who polls waits for one of them.
void WINAPI Sleep(DWORD milliseconds) {
  constexpr DWORD kForGood = 0xFFFFFFFF;
  if (milliseconds == kForGood) Unsupported("Sleep for good");
  Server::Current().clock().Advance(milliseconds);
  std::this_thread::sleep_for(std::chrono::microseconds(50));
}

void WINAPI InitializeCriticalSection(LPCRITICAL_SECTION critical_section) {
  const PlatformScope scope;
  Server::Current().threads().critical_sections().Initialize(critical_section);
  *critical_section = {};
}

void WINAPI EnterCriticalSection(LPCRITICAL_SECTION critical_section) {
  const PlatformScope scope;
  Server::Current().threads().critical_sections().Enter(critical_section);
}

BOOL WINAPI TryEnterCriticalSection(LPCRITICAL_SECTION critical_section) {
  const PlatformScope scope;
  return Server::Current().threads().critical_sections().TryEnter(critical_section) ? TRUE : FALSE;
}

void WINAPI LeaveCriticalSection(LPCRITICAL_SECTION critical_section) {
  const PlatformScope scope;
  Server::Current().threads().critical_sections().Leave(critical_section);
}

void WINAPI DeleteCriticalSection(LPCRITICAL_SECTION critical_section) {
  const PlatformScope scope;
  Server::Current().threads().critical_sections().Delete(critical_section);
}
