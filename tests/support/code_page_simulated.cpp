#include "simulator/model/server.h"
#include "support/code_page.h"

namespace tests {

UINT NamedCodePage(UINT code_page) {
  UseAnsiCodePage(code_page);
  return CP_ACP;
}

bool UseAnsiCodePage(UINT code_page) {
  simulator::Server::Current().system().ansi_code_page = code_page;
  return true;
}

}  // namespace tests
