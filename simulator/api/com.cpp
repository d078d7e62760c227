// COM: a thread's use of it, and the one class there is.
#include "simulator/model/desktop/com.h"

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include "simulator/api/call.h"
#include "simulator/api/taskbar_list.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

using simulator::Call;
using simulator::UnsupportedCall;

const IID IID_IUnknown = {0x00000000, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

HRESULT WINAPI CoInitialize(LPVOID reserved) {
  if (reserved != nullptr) UnsupportedCall("CoInitialize: what is reserved");
  const Call call("CoInitialize");
  if (call.fails()) return simulator::ResultOf(::GetLastError());
  simulator::Server& server = call.server();
  return call.Succeed(server.com().Initialize(&server.threads().State().com_uses));
}

// Cannot fail, so it is neither numbered nor traced.
void WINAPI CoUninitialize() {
  simulator::Server& server = simulator::Server::Current();
  if (server.own_process().HasEnded()) return;
  server.com().Uninitialize(&server.threads().State().com_uses);
  ::SetLastError(simulator::kSpoiltLastError);
}

HRESULT WINAPI CoCreateInstance(REFCLSID class_id, LPUNKNOWN outer, DWORD context,
                                REFIID interface_id, LPVOID* object) {
  if (outer != nullptr) UnsupportedCall("CoCreateInstance: within another object");
  if (context != CLSCTX_INPROC_SERVER) UnsupportedCall("CoCreateInstance: context");
  if (object == nullptr) UnsupportedCall("CoCreateInstance: nowhere to put it");
  const Call call("CoCreateInstance");
  *object = nullptr;
  if (call.fails()) return simulator::ResultOf(::GetLastError());
  if (call.server().threads().State().com_uses == 0) return CO_E_NOTINITIALIZED;
  if (class_id != CLSID_TaskbarList) return REGDB_E_CLASSNOTREG;
  return simulator::MakeTaskbarList(interface_id, object);
}
