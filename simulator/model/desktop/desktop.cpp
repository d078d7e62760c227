#include "simulator/model/desktop/desktop.h"

#include <algorithm>
#include <utility>

#include "simulator/model/common/clock.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/resources.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

constexpr LANGID kEnglish = 1033;

// In that language, else in English; null when neither has it.
template <typename Resource>
const Resource* FindResource(const ResourceMap<Resource>& resources, LANGID language, UINT id) {
  for (const LANGID tried : {language, kEnglish}) {
    const auto found = resources.find({tried, id});
    if (found != resources.end()) return &found->second;
  }
  return nullptr;
}

template <typename Container>
DWORD ErrorOfMissing(const Container& resources) {
  return resources.empty() ? ERROR_RESOURCE_TYPE_NOT_FOUND : ERROR_RESOURCE_NAME_NOT_FOUND;
}

}  // namespace

Desktop::Desktop(Clock& clock, const System& system)
    : system_(system),
      dialogs_(std::make_unique<Dialogs>(clock)),
      resources_(std::make_unique<Resources>(ProgramResources())) {}

Desktop::~Desktop() = default;

bool Desktop::has_progress_states() const { return system_.major_version >= 6; }

HWND Desktop::CreateWindow() {
  const HWND window = dialogs_->NewHandle();
  const std::lock_guard lock(mutex_);
  windows_[window];
  return window;
}

void Desktop::DestroyWindow(HWND window) {
  const std::lock_guard lock(mutex_);
  windows_.erase(window);
  changed_.notify_all();
}

bool Desktop::HasWindow(HWND window) const {
  if (dialogs_->Has(window)) return true;
  const std::lock_guard lock(mutex_);
  return windows_.contains(window);
}

DWORD Desktop::Post(HWND window, const PostedMessage& message) {
  std::unique_lock lock(mutex_);
  const auto found = windows_.find(window);
  if (found == windows_.end()) {
    lock.unlock();
    return dialogs_->Post(window, message.message, message.wparam, message.lparam);
  }
  if (found->second.size() >= kLongestQueue) return ERROR_NOT_ENOUGH_QUOTA;
  found->second.push_back(message);
  changed_.notify_all();
  return ERROR_SUCCESS;
}

std::optional<PostedMessage> Desktop::Take(HWND window) {
  const std::lock_guard lock(mutex_);
  std::deque<PostedMessage>& queue = QueueOf(window);
  if (queue.empty()) return std::nullopt;
  const PostedMessage message = queue.front();
  queue.pop_front();
  return message;
}

PostedMessage Desktop::WaitAndTake(HWND window) {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this, window] { return !QueueOf(window).empty(); });
  std::deque<PostedMessage>& queue = QueueOf(window);
  const PostedMessage message = queue.front();
  queue.pop_front();
  return message;
}

void Desktop::SetString(LANGID language, UINT id, std::string utf8) {
  const std::lock_guard lock(mutex_);
  resources_->strings[{language, id}] = std::move(utf8);
}

void Desktop::SetDialog(LANGID language, UINT id, DialogTemplate dialog) {
  const std::lock_guard lock(mutex_);
  resources_->dialogs[{language, id}] = std::move(dialog);
}

void Desktop::SetIcon(UINT id) {
  const std::lock_guard lock(mutex_);
  resources_->icons.insert({kEnglish, id});
}

// Since Windows Vista the locale only affects the formats of numbers and dates.
LANGID Desktop::ResourceLanguage(const ThreadState& thread) const {
  constexpr DWORD kVista = 6;
  const auto& own = system_.major_version < kVista ? thread.locale : thread.ui_language;
  return own.value_or(system_.language);
}

std::optional<std::string> Desktop::String(LANGID language, UINT id) const {
  const std::lock_guard lock(mutex_);
  const std::string* const found = FindResource(resources_->strings, language, id);
  return found == nullptr ? std::nullopt : std::optional(*found);
}

DWORD Desktop::FindDialog(LANGID language, UINT id, DialogTemplate* dialog) const {
  const std::lock_guard lock(mutex_);
  const DialogTemplate* const found = FindResource(resources_->dialogs, language, id);
  if (found == nullptr) return ErrorOfMissing(resources_->dialogs);
  *dialog = *found;
  return ERROR_SUCCESS;
}

DWORD Desktop::FindIcon(UINT id) const {
  const std::lock_guard lock(mutex_);
  const bool is_there = std::any_of(resources_->icons.begin(), resources_->icons.end(),
                                    [id](const auto& icon) { return icon.second == id; });
  return is_there ? DWORD{ERROR_SUCCESS} : ErrorOfMissing(resources_->icons);
}

std::deque<PostedMessage>& Desktop::QueueOf(HWND window) {
  const auto found = windows_.find(window);
  if (found == windows_.end()) Unsupported("taking messages of a window that is not there");
  return found->second;
}

}  // namespace simulator
