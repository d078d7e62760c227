// bcdedit and bcdboot with results that a test specifies.
#ifndef TESTS_SUPPORT_BOOT_TOOLS_SIMULATED_H_
#define TESTS_SUPPORT_BOOT_TOOLS_SIMULATED_H_

#include <map>
#include <memory>
#include <string>

#include "simulator/model/server.h"

namespace tests {

// Both tools are installed and succeed by default. The listing is that of a server with nothing to
// repair.
class BootTools {
 public:
  explicit BootTools(simulator::Server& server);
  BootTools(const BootTools&) = delete;
  BootTools& operator=(const BootTools&) = delete;

  // Call these before the tools run.
  void List(const std::string& listing) { (*replies_)["bcdedit"] = {0, listing}; }
  void Fail(const std::string& command_line, DWORD exit_code, const std::string& output = "") {
    (*replies_)[command_line] = {exit_code, output};
  }

 private:
  struct Reply {
    DWORD exit_code = 0;
    std::string output;
  };

  const std::shared_ptr<std::map<std::string, Reply>> replies_ =
      std::make_shared<std::map<std::string, Reply>>();
};

}  // namespace tests

#endif  // TESTS_SUPPORT_BOOT_TOOLS_SIMULATED_H_
