// The dialogs of the simulated process and the messages that wait for their threads.
#ifndef SIMULATOR_MODEL_DESKTOP_DIALOGS_H_
#define SIMULATOR_MODEL_DESKTOP_DIALOGS_H_

#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "simulator/model/processes/thread_queue.h"

namespace simulator {

class Clock;
class DeviceContexts;
struct Control;
struct Dialog;
struct ShownDialog;

// Thread-safe. A window belongs to the thread that created it.
class Dialogs {
 public:
  // When the time changes, threads that wait for messages check their timers.
  explicit Dialogs(Clock& clock);
  ~Dialogs();
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  // For tests. Returns every dialog that was created, in order of creation, including destroyed
  // ones.
  std::vector<ShownDialog> All() const;
  // Waits until a dialog exists and returns the one created last.
  HWND WaitForDialog();
  // Waits until the dialog's thread waits for messages and none is left, or until the dialog is
  // destroyed.
  void WaitUntilIdle(HWND dialog);
  // Posts the message that a click on a button sends. Aborts if there is no such visible button.
  void Click(HWND dialog, int id);
  void Press(HWND dialog, WPARAM key);
  // Returns the messages that were discarded with their windows since the last call, so that the
  // caller can free memory that they refer to. On Windows such memory remains allocated until the
  // process ends.
  std::vector<MSG> TakeLost();

  // Called with a dialog whose appearance may have changed: whenever its thread has handled a
  // message or is about to show a message box, and after the dialog is destroyed. The call is made
  // on the dialog's thread, without a lock held.
  using Watcher = std::function<void(const ShownDialog&)>;
  void Watch(Watcher watcher);
  // From now on, a thread that posts to a window of another thread continues only after every
  // message posted there has been handled, or, if the window is destroyed, at the end of the
  // process. This is one of the schedules that can occur on Windows.
  void HandlePostsAtOnce();

  // Returns a handle that no window has ever had.
  HWND NewHandle();
  bool Has(HWND window) const;
  HWND Add(WORD id, Dialog dialog, DLGPROC procedure);
  void RemoveControls(HWND dialog);
  void Remove(HWND dialog);  // after its controls
  // Calls `visit` with the lock held. The arguments are the dialog and, if the window is a control,
  // the control. Returns ERROR_INVALID_WINDOW_HANDLE if there is no such window. Aborts if the
  // window belongs to another thread.
  DWORD Visit(HWND window, const std::function<void(Dialog&, Control*)>& visit);
  bool IsOfThisThread(HWND window) const;
  // Calls the watcher for the dialogs of the calling thread.
  void TellWatcher();

  // Returns ERROR_INVALID_WINDOW_HANDLE if there is no such window, or ERROR_NOT_ENOUGH_QUOTA if
  // 10,000 messages already wait for its thread.
  DWORD Post(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void Quit(int exit_code);
  // Returns true if WM_QUIT waits for the calling thread; otherwise returns false. In this case
  // Windows closes a message box at once.
  bool HasQuit() const;
  void SetTimer(Dialog& dialog, UINT_PTR id, UINT milliseconds);  // called within Visit
  bool KillTimer(Dialog& dialog, UINT_PTR id);                    // called within Visit
  // Waits for the next message of the calling thread. Posted messages come first, then WM_QUIT,
  // painting and timers. Returns nothing if the process has ended.
  std::optional<MSG> WaitForMessage();
  // Returns a message that is already waiting, as the message loop of a message box does. WM_QUIT
  // stays in the queue.
  std::optional<MSG> TakeBesideBox();

  // Destroys all windows without sending messages, and ends all waits for messages.
  void EndProcess();
  void StartProcess();

  DeviceContexts& contexts() { return *contexts_; }

 private:
  struct Place {
    Dialog* dialog;
    Control* control;
  };
  struct Queue {
    ThreadQueue messages;
    bool is_waited_for = false;
  };

  // Called with the lock held.
  void Lose(const std::vector<MSG>& messages);
  HWND NextHandle();
  Place* Find(HWND window);
  Dialog& FindDialog(HWND window);
  bool IsIdle(const Dialog& dialog);
  std::optional<MSG> Take(Queue& queue, uint64_t thread);
  HWND WindowToPaint(uint64_t thread) const;
  bool HasMessage(const Queue& queue, uint64_t thread) const;

  const Clock& clock_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::unique_ptr<Dialog>> dialogs_;
  std::map<HWND, Place> places_;
  std::map<uint64_t, Queue> queues_;
  std::vector<MSG> lost_;
  UINT_PTR next_handle_ = 0x10010;
  bool ended_ = false;
  Watcher watcher_;
  bool handles_posts_at_once_ = false;
  const std::unique_ptr<DeviceContexts> contexts_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOGS_H_
