#include "simulator/api/taskbar_list.h"

#include <shobjidl.h>

#include <string>
#include <thread>

#include "simulator/api/call.h"
#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

const CLSID CLSID_TaskbarList = {
    0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
const IID IID_ITaskbarList = {
    0x56FDF342, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
const IID IID_ITaskbarList2 = {
    0x602D4995, 0xB13A, 0x429B, {0xA6, 0x6E, 0x19, 0x35, 0xE4, 0x4F, 0x43, 0x17}};
const IID IID_ITaskbarList3 = {
    0xEA1AFB91, 0x9E28, 0x4B86, {0x90, 0xE9, 0x9E, 0x9F, 0x8A, 0x5E, 0xEF, 0xAF}};

namespace simulator {
namespace {

// The third interface came with Windows 7.
bool HasInterface(const System& system, REFIID id) {
  const bool has_third =
      system.major_version > 6 || (system.major_version == 6 && system.minor_version > 0);
  return id == IID_IUnknown || id == IID_ITaskbarList || id == IID_ITaskbarList2 ||
         (id == IID_ITaskbarList3 && has_third);
}

// Belongs to the thread that made it. Counting references is no call that can fail: it is neither
// numbered nor traced, and goes on when the process has ended.
class TaskbarList final : public ITaskbarList3 {
 public:
  TaskbarList() { Server::Current().com().CountTaskbarLists(1); }
  TaskbarList(const TaskbarList&) = delete;
  TaskbarList& operator=(const TaskbarList&) = delete;

  HRESULT WINAPI QueryInterface(REFIID interface_id, void** object) override;
  ULONG WINAPI AddRef() override;
  ULONG WINAPI Release() override;

  HRESULT WINAPI SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) override;
  HRESULT WINAPI SetProgressState(HWND window, TBPFLAG state) override;

  HRESULT WINAPI HrInit() override { return Refuse("HrInit"); }
  HRESULT WINAPI AddTab(HWND) override { return Refuse("AddTab"); }
  HRESULT WINAPI DeleteTab(HWND) override { return Refuse("DeleteTab"); }
  HRESULT WINAPI ActivateTab(HWND) override { return Refuse("ActivateTab"); }
  HRESULT WINAPI SetActiveAlt(HWND) override { return Refuse("SetActiveAlt"); }
  HRESULT WINAPI MarkFullscreenWindow(HWND, BOOL) override {
    return Refuse("MarkFullscreenWindow");
  }
  HRESULT WINAPI RegisterTab(HWND, HWND) override { return Refuse("RegisterTab"); }
  HRESULT WINAPI UnregisterTab(HWND) override { return Refuse("UnregisterTab"); }
  HRESULT WINAPI SetTabOrder(HWND, HWND) override { return Refuse("SetTabOrder"); }
  HRESULT WINAPI SetTabActive(HWND, HWND, DWORD) override { return Refuse("SetTabActive"); }
  HRESULT WINAPI ThumbBarAddButtons(HWND, UINT, LPTHUMBBUTTON) override {
    return Refuse("ThumbBarAddButtons");
  }
  HRESULT WINAPI ThumbBarUpdateButtons(HWND, UINT, LPTHUMBBUTTON) override {
    return Refuse("ThumbBarUpdateButtons");
  }
  HRESULT WINAPI ThumbBarSetImageList(HWND, HIMAGELIST) override {
    return Refuse("ThumbBarSetImageList");
  }
  HRESULT WINAPI SetOverlayIcon(HWND, HICON, LPCWSTR) override { return Refuse("SetOverlayIcon"); }
  HRESULT WINAPI SetThumbnailTooltip(HWND, LPCWSTR) override {
    return Refuse("SetThumbnailTooltip");
  }
  HRESULT WINAPI SetThumbnailClip(HWND, RECT*) override { return Refuse("SetThumbnailClip"); }

 private:
  [[noreturn]] static HRESULT Refuse(const char* method) {
    UnsupportedCall(std::string("ITaskbarList3::") + method);
  }
  // Aborts on another thread, and where COM is not initialised any more.
  void CheckApartment() const;

  const std::thread::id apartment_ = std::this_thread::get_id();
  ULONG references_ = 1;
};

void TaskbarList::CheckApartment() const {
  Server& server = Server::Current();
  if (server.own_process().HasEnded()) return;
  if (std::this_thread::get_id() != apartment_) UnsupportedCall("ITaskbarList3 on another thread");
  if (server.threads().State().com_uses == 0) UnsupportedCall("ITaskbarList3 after CoUninitialize");
}

HRESULT TaskbarList::QueryInterface(REFIID interface_id, void** object) {
  CheckApartment();
  if (object == nullptr) UnsupportedCall("QueryInterface: nowhere to put it");
  const Call call("ITaskbarList3::QueryInterface");
  *object = nullptr;
  if (call.fails()) return ResultOf(::GetLastError());
  if (!HasInterface(call.server().system(), interface_id)) return E_NOINTERFACE;
  ++references_;
  *object = static_cast<ITaskbarList3*>(this);  // the first base of each is the one before it
  return call.Succeed(HRESULT{S_OK});
}

ULONG TaskbarList::AddRef() {
  CheckApartment();
  return ++references_;
}

ULONG TaskbarList::Release() {
  CheckApartment();
  const ULONG left = --references_;
  if (left > 0) return left;
  Server& server = Server::Current();
  if (!server.own_process().HasEnded()) server.com().CountTaskbarLists(-1);
  delete this;
  return 0;
}

HRESULT TaskbarList::SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) {
  CheckApartment();
  const Call call("ITaskbarList3::SetProgressValue", static_cast<const void*>(window),
                  uint64_t{completed}, uint64_t{total});
  if (call.fails()) return ResultOf(::GetLastError());
  if (!call.server().desktop().HasWindow(window)) UnsupportedCall("the progress of no window");
  call.server().com().SetTaskbarValue(window, completed, total);
  return call.Succeed(HRESULT{S_OK});
}

HRESULT TaskbarList::SetProgressState(HWND window, TBPFLAG state) {
  CheckApartment();
  const Call call("ITaskbarList3::SetProgressState", static_cast<const void*>(window),
                  static_cast<int>(state));
  if (call.fails()) return ResultOf(::GetLastError());
  if (!call.server().desktop().HasWindow(window)) UnsupportedCall("the progress of no window");
  call.server().com().SetTaskbarState(window, state);
  return call.Succeed(HRESULT{S_OK});
}

}  // namespace

HRESULT ResultOf(DWORD error) {
  constexpr DWORD kFailure = 0x80000000;
  constexpr DWORD kSystemError = kFailure | 0x00070000;
  return static_cast<HRESULT>((error & kFailure) != 0 ? error : error | kSystemError);
}

HRESULT MakeTaskbarList(REFIID interface_id, void** object) {
  if (!HasInterface(Server::Current().system(), interface_id)) return E_NOINTERFACE;
  *object = static_cast<ITaskbarList3*>(new TaskbarList);
  return S_OK;
}

}  // namespace simulator
