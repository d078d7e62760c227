// COM in the simulated process, and the progress that the taskbar shows.
#ifndef SIMULATOR_MODEL_DESKTOP_COM_H_
#define SIMULATOR_MODEL_DESKTOP_COM_H_

#include <windows.h>

#include <shobjidl.h>

#include <map>
#include <mutex>

namespace simulator {

// The progress on one window's taskbar button.
struct TaskbarProgress {
  ULONGLONG completed = 0;
  ULONGLONG total = 0;
  TBPFLAG state = TBPF_NOPROGRESS;
};

// Thread-safe.
class Com {
 public:
  // Returns the number of CoInitialize calls minus that of CoUninitialize calls, over all threads.
  // If threads have ended, a positive number means that one of them omitted CoUninitialize.
  int Uses() const;
  // Returns the number of CoUninitialize calls on threads on which COM was not initialized.
  int SurplusUninitializations() const;
  // Returns the number of ITaskbarList3 objects not yet released. After the process has ended, the
  // number is that at its end.
  int LiveTaskbarLists() const;
  TaskbarProgress TaskbarProgressOf(HWND window) const;

  // For the COM functions. `uses` is the use count of the calling thread.
  HRESULT Initialize(int* uses);  // S_FALSE if already initialized
  void Uninitialize(int* uses);
  void CountTaskbarLists(int by);
  void SetTaskbarValue(HWND window, ULONGLONG completed, ULONGLONG total);
  void SetTaskbarState(HWND window, TBPFLAG state);

  void Renew();  // for a new process

 private:
  mutable std::mutex mutex_;
  int uses_ = 0;
  int surplus_uninitializations_ = 0;
  int live_taskbar_lists_ = 0;
  std::map<HWND, TaskbarProgress> taskbar_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_COM_H_
