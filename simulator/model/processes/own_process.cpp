#include "simulator/model/processes/own_process.h"

#include "simulator/model/common/unsupported.h"
#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/processes/handles.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

// No std::exception: what catches those in the program must not catch its end.
struct ProcessExit {
  UINT exit_code;
};

}  // namespace

int OwnProcess::Run(const std::function<int()>& entry) {
  if (runner_ != std::thread::id()) Unsupported("a run of the program within another");
  if (HasEnded()) Renew();
  runner_ = std::this_thread::get_id();
  int exit_code = 0;
  try {
    exit_code = entry();
    End();
  } catch (const ProcessExit& exit) {
    exit_code = static_cast<int>(exit.exit_code);
  }
  runner_ = {};
  return exit_code;
}

void OwnProcess::Exit(UINT exit_code) {
  if (runner_ != std::this_thread::get_id()) {
    Unsupported("ExitProcess elsewhere than on the thread of a run's entry point");
  }
  End();
  throw ProcessExit{exit_code};
}

void OwnProcess::BreakOff() {
  broken_off_ = true;
  end_.request_stop();
  // First: a child that waits for the dialogs is not to go on with its work.
  server_.processes().TerminateAll();
  server_.dialogs().EndProcess();
}

void OwnProcess::LeaveWhenBrokenOff() {
  if (broken_off_ && runner_ == std::this_thread::get_id()) Exit(1);
}

void OwnProcess::End() {
  end_.request_stop();
  server_.dialogs().EndProcess();
  server_.processes().TerminateAll();
  server_.threads().WaitForAll();
  server_.processes().WaitForAll();
}

void OwnProcess::Renew() {
  end_ = std::stop_source();
  broken_off_ = false;
  error_mode_ = 0;
  server_.handles().CloseAll();
  server_.security().DisableAll();
  server_.threads().ForgetStates();
  server_.com().Renew();
  server_.dialogs().StartProcess();
  server_.processes().Reopen();
}

}  // namespace simulator
