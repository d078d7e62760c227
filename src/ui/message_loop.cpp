#include "ui/message_loop.h"

namespace ui {

int MessageLoop::Run() {
  MSG message{};
  for (;;) {
    const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
    if (got == 0) return static_cast<int>(message.wParam);
    if (got < 0) continue;  // no message; ending here would end the restore with it
    if (dialog_ != nullptr && ::IsDialogMessageW(dialog_, &message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

}  // namespace ui
