// The taskbar list.
#ifndef SIMULATOR_INCLUDE_SHOBJIDL_H_
#define SIMULATOR_INCLUDE_SHOBJIDL_H_

#include <unknwn.h>
#include <windef.h>

extern const CLSID CLSID_TaskbarList;
extern const IID IID_ITaskbarList;
extern const IID IID_ITaskbarList2;
extern const IID IID_ITaskbarList3;

// Types that the program only passes on.
struct _IMAGELIST;  // NOLINT(bugprone-reserved-identifier): the SDK's name
using HIMAGELIST = _IMAGELIST*;
struct THUMBBUTTON;
struct RECT;
using LPTHUMBBUTTON = THUMBBUTTON*;

enum TBPFLAG {
  TBPF_NOPROGRESS = 0,
  TBPF_INDETERMINATE = 0x1,
  TBPF_NORMAL = 0x2,
  TBPF_ERROR = 0x4,
  TBPF_PAUSED = 0x8,
};

struct ITaskbarList : IUnknown {
  virtual HRESULT WINAPI HrInit() = 0;
  virtual HRESULT WINAPI AddTab(HWND window) = 0;
  virtual HRESULT WINAPI DeleteTab(HWND window) = 0;
  virtual HRESULT WINAPI ActivateTab(HWND window) = 0;
  virtual HRESULT WINAPI SetActiveAlt(HWND window) = 0;
};

struct ITaskbarList2 : ITaskbarList {
  virtual HRESULT WINAPI MarkFullscreenWindow(HWND window, BOOL fullscreen) = 0;
};

struct ITaskbarList3 : ITaskbarList2 {
  virtual HRESULT WINAPI SetProgressValue(HWND window, ULONGLONG completed, ULONGLONG total) = 0;
  virtual HRESULT WINAPI SetProgressState(HWND window, TBPFLAG state) = 0;
  virtual HRESULT WINAPI RegisterTab(HWND tab, HWND mdi) = 0;
  virtual HRESULT WINAPI UnregisterTab(HWND tab) = 0;
  virtual HRESULT WINAPI SetTabOrder(HWND tab, HWND insert_before) = 0;
  virtual HRESULT WINAPI SetTabActive(HWND tab, HWND mdi, DWORD reserved) = 0;
  virtual HRESULT WINAPI ThumbBarAddButtons(HWND window, UINT count, LPTHUMBBUTTON buttons) = 0;
  virtual HRESULT WINAPI ThumbBarUpdateButtons(HWND window, UINT count, LPTHUMBBUTTON buttons) = 0;
  virtual HRESULT WINAPI ThumbBarSetImageList(HWND window, HIMAGELIST images) = 0;
  virtual HRESULT WINAPI SetOverlayIcon(HWND window, HICON icon, LPCWSTR description) = 0;
  virtual HRESULT WINAPI SetThumbnailTooltip(HWND window, LPCWSTR tip) = 0;
  virtual HRESULT WINAPI SetThumbnailClip(HWND window, RECT* clip) = 0;
};

#endif  // SIMULATOR_INCLUDE_SHOBJIDL_H_
