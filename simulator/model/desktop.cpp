#include "simulator/model/desktop.h"

#include "simulator/model/resource_script.h"
#include "simulator/model/resource_strings.h"
#include "simulator/model/unsupported.h"

namespace simulator {
namespace {

constexpr size_t kLongestQueue = 10'000;
constexpr LANGID kEnglish = 1033;
constexpr UINT kButtons = 0xF;  // the bits of a box's type that choose its buttons

// A box with nothing but OK answers it to whatever closes the box.
bool HasButton(const ShownMessageBox& box, int answer) {
  return answer == IDOK || (answer == IDCANCEL && (box.type & kButtons) == MB_OKCANCEL);
}

}  // namespace

Desktop::Desktop() {
  ResourceStrings read = ReadResourceStrings(kResourceScript, kResourceNames);
  if (!read.error.empty()) Unsupported("resource script: " + read.error);
  strings_ = std::move(read.strings);
}

HWND Desktop::CreateWindow() {
  const std::lock_guard lock(mutex_);
  const HWND window = reinterpret_cast<HWND>(next_window_);
  next_window_ += 2;
  windows_[window];
  return window;
}

void Desktop::DestroyWindow(HWND window) {
  const std::lock_guard lock(mutex_);
  windows_.erase(window);
  changed_.notify_all();
}

bool Desktop::HasWindow(HWND window) const {
  const std::lock_guard lock(mutex_);
  return windows_.contains(window);
}

DWORD Desktop::Post(HWND window, const PostedMessage& message) {
  const std::lock_guard lock(mutex_);
  const auto found = windows_.find(window);
  if (found == windows_.end()) return ERROR_INVALID_WINDOW_HANDLE;
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

void Desktop::AnswerBoxes(std::function<int(const ShownMessageBox&)> rule) {
  const std::lock_guard lock(mutex_);
  rule_ = std::move(rule);
}

int Desktop::Show(ShownMessageBox box) {
  std::unique_lock lock(mutex_);
  const std::function<int(const ShownMessageBox&)> rule = rule_;
  lock.unlock();
  box.answer = rule ? rule(box) : IDOK;
  if (!HasButton(box, box.answer)) Unsupported("an answer that the message box does not offer");
  lock.lock();
  boxes_.push_back(box);
  return box.answer;
}

std::vector<ShownMessageBox> Desktop::Boxes() const {
  const std::lock_guard lock(mutex_);
  return boxes_;
}

void Desktop::SetString(LANGID language, UINT id, std::string utf8) {
  const std::lock_guard lock(mutex_);
  strings_[{language, id}] = std::move(utf8);
}

std::optional<std::string> Desktop::String(LANGID language, UINT id) const {
  const std::lock_guard lock(mutex_);
  for (const LANGID tried : {language, kEnglish}) {
    const auto found = strings_.find({tried, id});
    if (found != strings_.end()) return found->second;
  }
  return std::nullopt;
}

std::deque<PostedMessage>& Desktop::QueueOf(HWND window) {
  const auto found = windows_.find(window);
  if (found == windows_.end()) Unsupported("taking messages of a window that is not there");
  return found->second;
}

}  // namespace simulator
