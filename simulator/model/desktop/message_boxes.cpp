#include "simulator/model/desktop/message_boxes.h"

#include <utility>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/dialogs.h"

namespace simulator {
namespace {

constexpr UINT kButtons = 0xF;  // the bits of a box's type that choose its buttons

// A box with nothing but OK answers it to whatever closes the box.
bool HasButton(const ShownMessageBox& box, int answer) {
  if ((box.type & kButtons) == MB_CANCELTRYCONTINUE) {
    return answer == IDCANCEL || answer == IDTRYAGAIN || answer == IDCONTINUE;
  }
  return answer == IDOK || (answer == IDCANCEL && (box.type & kButtons) == MB_OKCANCEL);
}

}  // namespace

void MessageBoxes::Answer(std::function<int(const ShownMessageBox&)> rule) {
  const std::lock_guard lock(mutex_);
  rule_ = std::move(rule);
}

std::vector<ShownMessageBox> MessageBoxes::Shown() const {
  const std::lock_guard lock(mutex_);
  return boxes_;
}

int MessageBoxes::Show(ShownMessageBox box) {
  dialogs_.TellWatcher();
  std::unique_lock lock(mutex_);
  const std::function<int(const ShownMessageBox&)> rule = rule_;
  lock.unlock();
  box.answer = rule ? rule(box) : IDOK;
  if (!HasButton(box, box.answer)) {
    Unsupported((rule ? "an answer that the message box does not offer: "
                      : "nobody answers the message box: ") +
                box.text);
  }
  lock.lock();
  boxes_.push_back(box);
  return box.answer;
}

}  // namespace simulator
