// The run of the worker, without a window.
#include "restore/run.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/expect.h"
#include "fuzz/scripted_server.h"
#include "fuzz/targets.h"
#include "logger/b_logger.h"
#include "restore/messages.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace fuzz {
namespace {

void TakePosted(simulator::Desktop& desktop, HWND window) {
  while (const std::optional<simulator::PostedMessage> message = desktop.Take(window)) {
    Expect(message->message == restore::WM_RESTORE_PROGRESS, "the worker posts progress alone");
    restore::ReleasePosted(message->wparam, message->lparam);
  }
}

// A tool that cannot be started leaves both ends of its pipe open, a privilege that cannot be
// enabled the token. Nothing else is left.
void ExpectNoHandlesLeft(ScriptedServer& scripted) {
  const std::vector<std::string> kinds = scripted.server().OpenHandles();
  const auto count = [&kinds](std::string_view kind) {
    return std::count(kinds.begin(), kinds.end(), kind);
  };
  const auto pipes = count("pipe read end");
  const auto tokens = count("token");
  Expect(count("pipe write end") == pipes, "the ends of a pipe stay open together");
  Expect(std::cmp_equal(kinds.size(), 2 * pipes + tokens), "only pipes and a token stay open");
  Expect(pipes == 0 || scripted.Fails("CreateProcessA"), "the pipe of a tool that runs is closed");
  Expect(tokens == 0 || (tokens == 1 && scripted.Fails("AdjustTokenPrivileges")),
         "a token that can be adjusted is closed");
}

}  // namespace

void Run(std::string_view bytes) {
  const int blocks = simulator::LiveLocalBlocks();
  ScriptedServer scripted(bytes);
  simulator::Server& server = scripted.server();
  const HWND window = server.desktop().CreateWindow();
  restore::SetDialog(window);
  {
    logger::BLogger logger("vantoro_restore", "");
    const int32_t result = restore::RestoreWorker(logger, window, "", "");
    Expect(result == 0 || result == 1, "a run succeeds or fails");
  }
  TakePosted(server.desktop(), window);
  scripted.ExpectWellFormedLog();
  ExpectNoHandlesLeft(scripted);
  Expect(server.threads().LiveCriticalSections() == 0, "no lock is left");
  Expect(simulator::LiveLocalBlocks() == blocks || scripted.Fails("LocalFree"),
         "no memory of the platform is left");
}

}  // namespace fuzz
