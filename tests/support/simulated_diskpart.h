// A disk tool with replies that a test specifies, and lines of its output.
#ifndef TESTS_SUPPORT_SIMULATED_DISKPART_H_
#define TESTS_SUPPORT_SIMULATED_DISKPART_H_

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"

namespace tests {

struct DiskpartReply {
  DWORD exit_code = 0;
  std::string output;
};

// "  Disk 1    Online           40 GB      0 B\r\n".
inline std::string DiskLine(int disk, const std::string& size) {
  return "  Disk " + std::to_string(disk) + "    Online           " + size +
         "      0 B         \r\n";
}

// "  Volume 1     C   Data         NTFS   Partition     39 GB  Healthy            \r\n"; a
// space in place of the letter if the volume has none.
inline std::string VolumeLine(char letter, const std::string& size) {
  return std::string("  Volume 1     ") + letter + "   Data         NTFS   Partition     " + size +
         "  Healthy            \r\n";
}

// Returns the commands of a script as the tool reads them: "sel disk 1/detail disk".
inline std::string CommandsOf(const std::string& script) {
  std::string commands;
  for (const char c : script) {
    if (c == '\n') commands += '/';
    if (c != '\n' && c != '\r') commands += c;
  }
  if (commands.ends_with('/')) commands.pop_back();
  return commands;
}

// Is installed as "diskpart" until destroyed.
class ScriptedDiskpart {
 public:
  // `answer` is called with the commands of each script, on the tool's thread.
  using Answer = std::function<DiskpartReply(const std::string& commands)>;

  ScriptedDiskpart(simulator::Server& server, Answer answer)
      : server_(server), answer_(std::move(answer)) {
    server_.processes().Install(
        "diskpart", [this](simulator::Server& running, simulator::ChildProcess& child) {
          const std::string commands =
              CommandsOf(running.files().Read(child.Arguments().at(2)).value_or("no script"));
          {
            const std::lock_guard lock(mutex_);
            commands_.push_back(commands);
          }
          const DiskpartReply reply = answer_(commands);
          child.WriteOutput(reply.output);
          return reply.exit_code;
        });
  }
  ~ScriptedDiskpart() {
    server_.processes().WaitForAll();
    server_.processes().Uninstall("diskpart");
  }
  ScriptedDiskpart(const ScriptedDiskpart&) = delete;
  ScriptedDiskpart& operator=(const ScriptedDiskpart&) = delete;

  // Returns the commands of every script so far.
  std::vector<std::string> Commands() const {
    const std::lock_guard lock(mutex_);
    return commands_;
  }

 private:
  simulator::Server& server_;
  const Answer answer_;
  mutable std::mutex mutex_;
  std::vector<std::string> commands_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_DISKPART_H_
