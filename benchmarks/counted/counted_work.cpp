// So much work of one kind, for a tool that counts instructions:
//   counted_work acl COUNT    lines of an ACL backup file, by the program's engine
//   counted_work log COUNT    lines by the program's logger
// Twice the work less the work once is the work alone, without what comes before and behind it.
#include <cstdio>
#include <string>
#include <string_view>

#include "acl/acl_util.h"
#include "logger/b_logger.h"
#include "simulator/model/server.h"

namespace {

void WriteLists(simulator::Server& server, int lines) {
  constexpr int kFiles = 100;
  std::string text;
  for (int i = 0; i < lines; ++i) {
    const std::string path = "C:\\Data\\Report " + std::to_string(100 + i % kFiles) + ".docx";
    if (i < kFiles) server.files().Write(path, "");
    text += "\"" + path + "\",32,\"O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)\"\r\n";
  }
  server.files().Write("C:\\acl.dat", text);
}

bool RestoreLines(simulator::Server& server, int lines) {
  WriteLists(server, lines);
  acl::ACLUtil engine;
  engine.SetInputFile("C:\\acl.dat");
  return engine.RestoreFromFile(true, static_cast<uint32_t>(lines), {0, 100}) == acl::kRestored;
}

bool LogLines(int lines) {
  logger::BLogger logger("bench", "C:\\");
  for (int line = 0; line < lines; ++line) {
    logger.Info("RestoreDisks Assign Disk %d Letter [%c] Failed.", 100'000 + line, 'e');
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  const int count = std::stoi(argv[2]);
  simulator::Server server;
  server.calls().KeepTrace(false);
  const bool is_done =
      std::string_view(argv[1]) == "acl" ? RestoreLines(server, count) : LogLines(count);
  return is_done ? 0 : 1;
}
