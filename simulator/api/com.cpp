// COM: a thread's use of it, and the one class there is, the taskbar list.
#include "simulator/model/desktop/com.h"

#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include <thread>

#include "simulator/api/call.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

const CLSID CLSID_TaskbarList = {
    0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
const IID IID_ITaskbarList3 = {
    0xEA1AFB91, 0x9E28, 0x4B86, {0x90, 0xE9, 0x9E, 0x9F, 0x8A, 0x5E, 0xEF, 0xAF}};

namespace simulator {
namespace {

// The HRESULT for a failing call: the code of a system error gets FACILITY_WIN32, and an HRESULT
// stays as it is.
HRESULT LastResult() {
  constexpr DWORD kFailure = 0x80000000;
  constexpr DWORD kSystemError = kFailure | 0x00070000;
  const DWORD error = ::GetLastError();
  return static_cast<HRESULT>((error & kFailure) != 0 ? error : error | kSystemError);
}

// Belongs to the thread that made it, and has one owner. Its release is no call that can fail: it
// is neither numbered nor traced, and works when the process has ended.
class TaskbarList final : public ITaskbarList3 {
 public:
  TaskbarList() { Server::Current().com().CountTaskbarLists(1); }
  TaskbarList(const TaskbarList&) = delete;
  TaskbarList& operator=(const TaskbarList&) = delete;

  ULONG WINAPI Release() override;
  HRESULT WINAPI SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) override;
  HRESULT WINAPI SetProgressState(HWND window, TBPFLAG state) override;

 private:
  // Aborts on another thread, and where COM is not initialised any more.
  void CheckApartment() const;

  const std::thread::id apartment_ = std::this_thread::get_id();
};

void TaskbarList::CheckApartment() const {
  Server& server = Server::Current();
  if (server.own_process().HasEnded()) return;
  if (std::this_thread::get_id() != apartment_) Unsupported("ITaskbarList3 on another thread");
  if (server.threads().State().com_uses == 0) Unsupported("ITaskbarList3 after CoUninitialize");
}

ULONG TaskbarList::Release() {
  CheckApartment();
  Server& server = Server::Current();
  if (!server.own_process().HasEnded()) server.com().CountTaskbarLists(-1);
  delete this;
  return 0;
}

HRESULT TaskbarList::SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) {
  CheckApartment();
  const Call call("ITaskbarList3::SetProgressValue", window, completed, total);
  if (call.fails()) return LastResult();
  if (!call.server().desktop().HasWindow(window)) Unsupported("the progress of no window");
  call.server().com().SetTaskbarValue(window, completed, total);
  return call.Succeed(HRESULT{S_OK});
}

HRESULT TaskbarList::SetProgressState(HWND window, TBPFLAG state) {
  CheckApartment();
  const Call call("ITaskbarList3::SetProgressState", window, static_cast<int>(state));
  if (call.fails()) return LastResult();
  if (!call.server().desktop().HasWindow(window)) Unsupported("the progress of no window");
  call.server().com().SetTaskbarState(window, state);
  return call.Succeed(HRESULT{S_OK});
}

// The interface came with Windows 7.
bool HasTaskbarList3(const System& system) {
  return system.major_version > 6 || (system.major_version == 6 && system.minor_version > 0);
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::Unsupported;

HRESULT WINAPI CoInitialize(LPVOID reserved) {
  if (reserved != nullptr) Unsupported("CoInitialize: what is reserved");
  const Call call("CoInitialize");
  if (call.fails()) return simulator::LastResult();
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
  if (outer != nullptr) Unsupported("CoCreateInstance: within another object");
  if (context != CLSCTX_INPROC_SERVER) Unsupported("CoCreateInstance: context");
  if (object == nullptr) Unsupported("CoCreateInstance: nowhere to put it");
  const Call call("CoCreateInstance");
  *object = nullptr;
  if (call.fails()) return simulator::LastResult();
  if (call.server().threads().State().com_uses == 0) return CO_E_NOTINITIALIZED;
  if (class_id != CLSID_TaskbarList) return REGDB_E_CLASSNOTREG;
  const bool is_there = simulator::HasTaskbarList3(call.server().system());
  if (interface_id != IID_ITaskbarList3 || !is_there) return E_NOINTERFACE;
  *object = static_cast<ITaskbarList3*>(new simulator::TaskbarList);
  return S_OK;
}
