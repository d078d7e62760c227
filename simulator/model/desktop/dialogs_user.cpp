// What a user does to dialogs, and waiting for what they do.
#include <string>
#include <utility>
#include <vector>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {
namespace {

void Deliver(DWORD error) {
  if (error != ERROR_SUCCESS) Unsupported("input for a window whose queue takes no more");
}

}  // namespace

HWND Dialogs::WaitForDialog() {
  std::unique_lock lock(mutex_);
  changed_.wait(
      lock, [this] { return !dialogs_.empty() && Find(dialogs_.back()->shown.window) != nullptr; });
  return dialogs_.back()->shown.window;
}

void Dialogs::WaitUntilIdle(HWND dialog) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this, dialog] {
    const Place* const place = Find(dialog);
    return place == nullptr || IsIdle(*place->dialog);
  });
}

bool Dialogs::IsIdle(const Dialog& dialog) {
  const Queue& queue = queues_[dialog.thread];
  return queue.is_waited_for && !HasMessage(queue, dialog.thread);
}

void Dialogs::Click(HWND dialog, int id) {
  std::unique_lock lock(mutex_);
  Dialog& clicked = FindDialog(dialog);
  const Control* const button = clicked.Find(id);
  if (!clicked.shown.visible || button == nullptr || button->kind != ControlClass::kButton ||
      (button->shown.style & WS_VISIBLE) == 0) {
    Unsupported("a click on control " + std::to_string(id) + ", which is no button to see");
  }
  const HWND window = button->shown.window;
  lock.unlock();
  Deliver(Post(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(window)));
}

void Dialogs::Press(HWND dialog, WPARAM key) { Deliver(Post(dialog, WM_KEYDOWN, key, 1)); }

std::vector<MSG> Dialogs::TakeLost() {
  const std::lock_guard lock(mutex_);
  return std::exchange(lost_, {});
}

void Dialogs::Watch(Watcher watcher) {
  const std::lock_guard lock(mutex_);
  watcher_ = std::move(watcher);
}

void Dialogs::TellWatcher() {
  std::unique_lock lock(mutex_);
  const Watcher watcher = watcher_;
  if (!watcher) return;
  std::vector<ShownDialog> visited;
  for (const std::unique_ptr<Dialog>& each : dialogs_) {
    Dialog& dialog = *each;
    if (dialog.thread != ThisThread() || !std::exchange(dialog.was_visited, false)) continue;
    visited.push_back(dialog.Shown());
  }
  lock.unlock();
  for (const ShownDialog& dialog : visited) watcher(dialog);
}

void Dialogs::HandlePostsAtOnce() {
  const std::lock_guard lock(mutex_);
  handles_posts_at_once_ = true;
}

}  // namespace simulator
