#include "support/lost_messages_simulated.h"

#include "restore/messages.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/server.h"

namespace tests {

void ReleaseLost(simulator::Server& server) {
  for (const MSG& lost : server.dialogs().TakeLost()) {
    if (lost.message == restore::WM_RESTORE_PROGRESS) {
      restore::ReleasePosted(lost.wParam, lost.lParam);
    }
  }
}

}  // namespace tests
