// The messages that wait for dialogs' threads.
#include "simulator/model/common/clock.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialogs.h"

namespace simulator {

DWORD Dialogs::Post(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
  std::unique_lock lock(mutex_);
  const Place* const place = Find(window);
  if (place == nullptr) return ERROR_INVALID_WINDOW_HANDLE;
  const DWORD time = static_cast<DWORD>(clock_.Milliseconds());
  Queue& queue = queues_[place->dialog->thread];
  if (!queue.messages.Post({window, message, wparam, lparam, time, {}})) {
    return ERROR_NOT_ENOUGH_QUOTA;
  }
  changed_.notify_all();
  if (handles_posts_at_once_ && place->dialog->thread != ThisThread()) {
    const HWND dialog = place->dialog->shown.window;
    changed_.wait(lock, [this, dialog] {
      const Place* const left = Find(dialog);
      return ended_ || (left != nullptr && IsIdle(*left->dialog));
    });
  }
  return ERROR_SUCCESS;
}

void Dialogs::Quit(int exit_code) {
  const std::lock_guard lock(mutex_);
  queues_[ThisThread()].messages.Quit(exit_code);
}

bool Dialogs::HasQuit() const {
  const std::lock_guard lock(mutex_);
  const auto found = queues_.find(ThisThread());
  return found != queues_.end() && found->second.messages.HasQuit();
}

void Dialogs::SetTimer(Dialog& dialog, UINT_PTR id, UINT milliseconds) {
  queues_[dialog.thread].messages.SetTimer(dialog.shown.window, id, milliseconds,
                                           clock_.Milliseconds());
  dialog.shown.timers[id] = milliseconds;
}

bool Dialogs::KillTimer(Dialog& dialog, UINT_PTR id) {
  dialog.shown.timers.erase(id);
  return queues_[dialog.thread].messages.KillTimer(dialog.shown.window, id);
}

std::optional<MSG> Dialogs::WaitForMessage() {
  TellWatcher();
  std::unique_lock lock(mutex_);
  const uint64_t thread = ThisThread();
  Queue& queue = queues_[thread];
  queue.is_waited_for = true;
  changed_.notify_all();
  changed_.wait(lock, [&] { return ended_ || HasMessage(queue, thread); });
  queue.is_waited_for = false;
  if (ended_) return std::nullopt;
  return Take(queue, thread);
}

std::optional<MSG> Dialogs::TakeBesideBox() {
  TellWatcher();
  const std::lock_guard lock(mutex_);
  const uint64_t thread = ThisThread();
  Queue& queue = queues_[thread];
  if (!queue.messages.HasPosted() && queue.messages.HasQuit()) return std::nullopt;
  return Take(queue, thread);
}

std::optional<MSG> Dialogs::Take(Queue& queue, uint64_t thread) {
  if (std::optional<MSG> posted = queue.messages.TakePosted()) return posted;
  const int64_t now = clock_.Milliseconds();
  std::optional<MSG> message = queue.messages.TakeQuit();
  if (!message) {
    if (const HWND window = WindowToPaint(thread); window != nullptr) {
      message.emplace(MSG{window, WM_PAINT, 0, 0, 0, {}});
    }
  }
  if (!message) message = queue.messages.TakeTimer(now);
  if (message) message->time = static_cast<DWORD>(now);
  return message;
}

HWND Dialogs::WindowToPaint(uint64_t thread) const {
  for (const auto& [window, place] : places_) {
    if (place.control == nullptr || !place.control->needs_painting) continue;
    const bool is_visible =
        place.dialog->shown.visible && (place.control->shown.style & WS_VISIBLE) != 0;
    if (is_visible && place.dialog->thread == thread) return window;
  }
  return nullptr;
}

bool Dialogs::HasMessage(const Queue& queue, uint64_t thread) const {
  return queue.messages.HasPosted() || queue.messages.HasQuit() ||
         WindowToPaint(thread) != nullptr || queue.messages.HasTimerDue(clock_.Milliseconds());
}

}  // namespace simulator
