// COM in the simulated process, and the progress that the task bar shows.
#ifndef SIMULATOR_MODEL_DESKTOP_COM_H_
#define SIMULATOR_MODEL_DESKTOP_COM_H_

#include <windows.h>

#include <shobjidl.h>

#include <map>
#include <mutex>

namespace simulator {

// Of one window's task bar button.
struct TaskbarProgress {
  ULONGLONG completed = 0;
  ULONGLONG total = 0;
  TBPFLAG state = TBPF_NOPROGRESS;
};

// Thread-safe.
class Com {
 public:
  // CoInitialize less CoUninitialize, over all threads; what is left is a thread's that forgot.
  int Uses() const;
  // CoUninitialize on threads that COM was not initialised on.
  int SurplusUninitializations() const;
  // ITaskbarList3 objects not yet released; after the end of the process, those of its end.
  int LiveTaskbarLists() const;
  TaskbarProgress TaskbarProgressOf(HWND window) const;

  // For the calls. `uses` is the calling thread's.
  HRESULT Initialize(int* uses);  // S_FALSE when it was already
  void Uninitialize(int* uses);
  void CountTaskbarLists(int by);
  void SetTaskbarValue(HWND window, ULONGLONG completed, ULONGLONG total);
  void SetTaskbarState(HWND window, TBPFLAG state);

  void Renew();  // a new process

 private:
  mutable std::mutex mutex_;
  int uses_ = 0;
  int surplus_uninitializations_ = 0;
  int live_taskbar_lists_ = 0;
  std::map<HWND, TaskbarProgress> taskbar_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_COM_H_
