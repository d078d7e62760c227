// The whole program, from its entry point to its exit, with somebody before the screen.
#include <windows.h>

#include <algorithm>

#include "fuzz/expect.h"
#include "fuzz/scripted_server.h"
#include "fuzz/targets.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/desktop/shown_dialog.h"
#include "simulator/model/desktop/shutdown.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"
#include "support/lost_messages_simulated.h"

namespace fuzz {
namespace {

int RunProgram(simulator::Server& server, simulator::User& user) {
  simulator::Dialogs& dialogs = server.dialogs();
  dialogs.HandlePostsAtOnce();
  dialogs.Watch([&](const simulator::ShownDialog& dialog) {
    if (user.WantsToCancel(dialog)) dialogs.Click(dialog.window, IDCANCEL);
  });
  server.message_boxes().Answer(
      [&](const simulator::ShownMessageBox& box) { return user.Answer(box); });
  const int exit_code = server.own_process().Run(
      [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  dialogs.Watch(nullptr);
  return exit_code;
}

}  // namespace

void Program(std::string_view bytes) {
  ScriptedServer scripted(bytes);
  simulator::Server& server = scripted.server();
  simulator::User user(scripted.intention());
  const int exit_code = RunProgram(server, user);
  Expect(exit_code == 0 || exit_code == 1, "the program ends with 0 or 1");
  tests::ReleaseLost(server);
  scripted.ExpectWellFormedLog();
  Expect(!server.shutdown().Scheduled() || scripted.intention().wish == simulator::Wish::kRestart,
         "nobody's server is restarted without consent");
}

}  // namespace fuzz
