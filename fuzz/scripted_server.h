// A migrated server whose faults are described by the text of an input. The text consists of
// sections. Each section is a line that begins with "@", followed by a body that extends to the
// next such line:
//
//   @tool bcdedit 1 2     the second call of bcdedit prints the body and ends with exit code 1
//   @file d aclbackup     the body becomes the ACL backup file of the volume that was D; likewise
//                         "juncbackup" and "backup_info"
//   @fault ReadFile 5 2   the second ReadFile fails with error 5; with "always" after it, that
//                         call and every later one
//   @windows 5            Windows Server 2003
//   @language 2052        the system's language
//   @stray zh-CN          a second loader, with that locale
//   @free 100             the number of bytes that are free on C
//   @user cancel 40       clicks Cancel at 40 %; "later" declines the restart
//
// Other sections are ignored.
#ifndef FUZZ_SCRIPTED_SERVER_H_
#define FUZZ_SCRIPTED_SERVER_H_

#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/user.h"
#include "simulator/model/server.h"
#include "support/process.h"

namespace fuzz {

// The server of a new process of the program. The state that an earlier run has left in this
// process is reset.
class ScriptedServer {
 public:
  explicit ScriptedServer(std::string_view script);
  ~ScriptedServer();
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  simulator::Server& server() { return server_; }
  simulator::Intention intention() const { return intention_; }
  // Returns true if a call of that name is to fail; otherwise returns false.
  bool Fails(std::string_view name) const;

  // Call after the run. Aborts unless the log consists of whole lines, each with a time and a
  // level.
  void ExpectWellFormedLog();

 private:
  const tests::NewProcess process_;
  simulator::Server server_;
  simulator::Scenario scenario_;
  simulator::Intention intention_;
  std::vector<std::string> log_;  // the bytes of each write to the log file
};

}  // namespace fuzz

#endif  // FUZZ_SCRIPTED_SERVER_H_
