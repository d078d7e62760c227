#include "simulator/api/medium.h"

#include <optional>
#include <string>

#include "simulator/api/call.h"
#include "simulator/model/desktop/message_boxes.h"
#include "simulator/model/files/files.h"
#include "simulator/model/processes/own_process.h"

namespace simulator {

bool AsksToTryAgain(Server& server, std::string_view path) {
  if ((server.own_process().error_mode() & SEM_FAILCRITICALERRORS) != 0) return false;
  const std::optional<char> drive = server.file_system().EmptyDrive(path);
  if (!drive) return true;  // it has got a medium in the meantime
  const std::string& program = server.system().program_path;
  const std::string text = "There is no disk in the drive. Please insert a disk into drive ";
  return server.message_boxes().Show({nullptr, text + *drive + ":.",
                                      program.substr(program.rfind('\\') + 1) + " - No Disk",
                                      MB_CANCELTRYCONTINUE | MB_ICONERROR, 0}) == IDTRYAGAIN;
}

}  // namespace simulator

// Cannot fail, so it is neither numbered nor traced.
UINT WINAPI SetErrorMode(UINT mode) {
  if ((mode & ~UINT{SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX}) != 0) {
    simulator::Unsupported("SetErrorMode: such a mode");
  }
  return simulator::Server::Current().own_process().SetErrorMode(mode);
}
