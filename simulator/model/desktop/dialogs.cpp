#include "simulator/model/desktop/dialogs.h"

#include <utility>

#include "simulator/model/common/clock.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/dialog.h"
#include "simulator/model/desktop/graphics.h"
#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {

Dialogs::Dialogs(Clock& clock) : clock_(clock), contexts_(std::make_unique<DeviceContexts>()) {
  clock.OnMove([this] {
    const std::lock_guard lock(mutex_);
    changed_.notify_all();
  });
}

Dialogs::~Dialogs() = default;

std::vector<ShownDialog> Dialogs::All() const {
  const std::lock_guard lock(mutex_);
  std::vector<ShownDialog> all;
  for (const std::unique_ptr<Dialog>& dialog : dialogs_) all.push_back(dialog->Shown());
  return all;
}

HWND Dialogs::NewHandle() {
  const std::lock_guard lock(mutex_);
  return NextHandle();
}

bool Dialogs::Has(HWND window) const {
  const std::lock_guard lock(mutex_);
  return places_.contains(window);
}

HWND Dialogs::Add(WORD id, Dialog dialog, DLGPROC procedure) {
  const std::lock_guard lock(mutex_);
  Dialog& added = *dialogs_.emplace_back(std::make_unique<Dialog>(std::move(dialog)));
  added.procedure = procedure;
  added.thread = ThisThread();
  added.shown.id = id;
  added.shown.window = NextHandle();
  places_[added.shown.window] = {&added, nullptr};
  for (Control& control : added.controls) {
    control.shown.window = NextHandle();
    places_[control.shown.window] = {&added, &control};
  }
  changed_.notify_all();
  return added.shown.window;
}

void Dialogs::RemoveControls(HWND dialog) {
  const std::lock_guard lock(mutex_);
  Dialog& removed = FindDialog(dialog);
  removed.has_controls = false;
  for (const Control& control : removed.controls) {
    Lose(queues_[removed.thread].messages.Forget(control.shown.window));
    places_.erase(control.shown.window);
  }
}

void Dialogs::Remove(HWND dialog) {
  const std::lock_guard lock(mutex_);
  Dialog& removed = FindDialog(dialog);
  Lose(queues_[removed.thread].messages.Forget(dialog));
  places_.erase(dialog);
  removed.shown.timers.clear();
  removed.shown.visible = false;
  removed.shown.destroyed = true;
  removed.was_visited = true;
  changed_.notify_all();
}

DWORD Dialogs::Visit(HWND window, const std::function<void(Dialog&, Control*)>& visit) {
  const std::lock_guard lock(mutex_);
  const Place* const place = Find(window);
  if (place == nullptr) return ERROR_INVALID_WINDOW_HANDLE;
  if (place->dialog->thread != ThisThread()) Unsupported("a call on another thread's window");
  place->dialog->was_visited = true;
  visit(*place->dialog, place->control);
  return ERROR_SUCCESS;
}

bool Dialogs::IsOfThisThread(HWND window) const {
  const std::lock_guard lock(mutex_);
  const auto found = places_.find(window);
  return found != places_.end() && found->second.dialog->thread == ThisThread();
}

void Dialogs::EndProcess() {
  const std::lock_guard lock(mutex_);
  ended_ = true;
  places_.clear();
  for (auto& [thread, queue] : queues_) Lose(queue.messages.Clear());
  changed_.notify_all();
}

void Dialogs::StartProcess() {
  const std::lock_guard lock(mutex_);
  ended_ = false;
}

void Dialogs::Lose(const std::vector<MSG>& messages) {
  lost_.insert(lost_.end(), messages.begin(), messages.end());
}

HWND Dialogs::NextHandle() {
  const HWND window = reinterpret_cast<HWND>(next_handle_);
  next_handle_ += 2;
  return window;
}

Dialogs::Place* Dialogs::Find(HWND window) {
  const auto found = places_.find(window);
  return found == places_.end() ? nullptr : &found->second;
}

Dialog& Dialogs::FindDialog(HWND window) {
  const Place* const place = Find(window);
  if (place == nullptr || place->control != nullptr) Unsupported("a dialog that is not there");
  return *place->dialog;
}

}  // namespace simulator
