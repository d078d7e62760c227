// A migrated server that an input's text spoils. It is made of sections, each a line that begins
// with "@" and what lies behind that line, up to the next such line:
//
//   @tool bcdedit 1 2     the second call of bcdedit prints what lies behind and ends with code 1
//   @file d aclbackup     the ACL list of the volume that was D, as it lies behind; so "juncbackup"
//                         and "backup_info"
//   @fault ReadFile 5 2   the second ReadFile fails with error 5; "always": that and all later ones
//   @windows 5            Windows Server 2003
//   @language 2052        the system's
//   @stray zh-CN          a second loader, in that locale
//   @free 100             bytes that are free on C
//   @user cancel 40       clicks Cancel at 40 %; "later" declines the restart
//
// Anything else is passed over.
#ifndef FUZZ_SCRIPTED_SERVER_H_
#define FUZZ_SCRIPTED_SERVER_H_

#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/description/scenario.h"
#include "rehearsal/user.h"
#include "simulator/model/server.h"

namespace fuzz {

// Of a program that runs anew: what an earlier run in this process has left is forgotten.
class ScriptedServer {
 public:
  explicit ScriptedServer(std::string_view script);
  ~ScriptedServer();
  ScriptedServer(const ScriptedServer&) = delete;
  ScriptedServer& operator=(const ScriptedServer&) = delete;

  simulator::Server& server() { return server_; }
  simulator::Intention intention() const { return intention_; }
  // Whether a call of that name is to fail.
  bool Fails(std::string_view name) const;

  // Call behind the run: the log consists of whole lines with a time and a level each.
  void ExpectWellFormedLog();

 private:
  simulator::Server server_;
  simulator::Scenario scenario_;
  simulator::Intention intention_;
  std::vector<std::string> log_;  // what was written to it, one element for each write
};

}  // namespace fuzz

#endif  // FUZZ_SCRIPTED_SERVER_H_
