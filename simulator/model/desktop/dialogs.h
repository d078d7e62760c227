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

// Thread-safe. A window belongs to the thread that made it.
class Dialogs {
 public:
  // Wakes who waits for a message when the clock is moved.
  explicit Dialogs(Clock& clock);
  ~Dialogs();
  Dialogs(const Dialogs&) = delete;
  Dialogs& operator=(const Dialogs&) = delete;

  // What tests see and do. Every dialog that was made, in that order, destroyed ones as well.
  std::vector<ShownDialog> All() const;
  // The dialog made last, once one stands.
  HWND WaitForDialog();
  // Until the dialog's thread waits for messages and there are none, or the dialog is gone.
  void WaitUntilIdle(HWND dialog);
  // Posts what a click on a button sends. Aborts when there is no such button to see.
  void Click(HWND dialog, int id);
  void Press(HWND dialog, WPARAM key);
  // Messages that were lost with their windows since the last time, so that what they carry can be
  // freed. Windows would leave it to the end of the process.
  std::vector<MSG> TakeLost();

  // Called with a dialog that may look different whenever its thread has handled a message or is
  // about to show a box, and once it is destroyed: on that thread, without a lock held.
  using Watcher = std::function<void(const ShownDialog&)>;
  void Watch(Watcher watcher);
  // From now on who posts to another thread's window goes on when everything posted there has been
  // handled, or, should the window go, at the end of the process. Windows may happen to run threads
  // that way.
  void HandlePostsAtOnce();

  // A handle that no window has had.
  HWND NewHandle();
  bool Has(HWND window) const;
  HWND Add(WORD id, Dialog dialog, DLGPROC procedure);
  void RemoveControls(HWND dialog);
  void Remove(HWND dialog);  // behind its controls
  // Calls `visit`, under the lock, with the dialog, and the control when the window is one, and
  // returns what it returns. ERROR_INVALID_WINDOW_HANDLE when there is no such window; aborts when
  // it is another thread's.
  DWORD Visit(HWND window, const std::function<DWORD(Dialog&, Control*)>& visit);
  bool IsOfThisThread(HWND window) const;
  // Tells the watcher of the calling thread's dialogs.
  void TellWatcher();

  // ERROR_INVALID_WINDOW_HANDLE, ERROR_NOT_ENOUGH_QUOTA once 10,000 messages wait for the thread.
  DWORD Post(HWND window, UINT message, WPARAM wparam, LPARAM lparam);
  void Quit(int exit_code);
  // Whether WM_QUIT waits for the calling thread. Windows closes a message box then at once.
  bool HasQuit() const;
  void SetTimer(Dialog& dialog, UINT_PTR id, UINT milliseconds);  // called by a visit
  bool KillTimer(Dialog& dialog, UINT_PTR id);                    // called by a visit
  // The calling thread's next message: what was posted, WM_QUIT, painting, timers. Nothing when the
  // process has ended.
  std::optional<MSG> WaitForMessage();
  // One that waits already, as a message box takes it: WM_QUIT stays.
  std::optional<MSG> TakeBesideBox();

  // All windows vanish, without a message, and whoever waits for one stops waiting.
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

  // With the lock held.
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
