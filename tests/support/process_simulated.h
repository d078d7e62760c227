// What the program remembers for as long as its process lives.
#ifndef TESTS_SUPPORT_PROCESS_SIMULATED_H_
#define TESTS_SUPPORT_PROCESS_SIMULATED_H_

#include "acl/acl_util.h"
#include "common/win/platform_cache.h"
#include "restore/messages.h"
#include "ui/process_state.h"

namespace simulator {
class Server;
}  // namespace simulator

namespace tests {

// As in a process that has not asked for the platform yet.
inline void ForgetPlatforms() {
  using common::win::BootOperation;
  for (const BootOperation operation :
       {BootOperation::kInspect, BootOperation::kExport, BootOperation::kImport,
        BootOperation::kDelete, BootOperation::kRemake}) {
    common::win::CachedPlatform(operation) = common::win::kPlatformUnknown;
  }
}

// All of it is forgotten, but for the list of children, which only grows: what runs next runs as in
// a new process.
inline void ForgetProcess() {
  acl::ACLUtil::privileges_enabled = false;
  ForgetPlatforms();
  restore::SetDialog(nullptr);
  ui::ProcessState::Instance().Forget();
}

// Frees what the messages carry that were lost with their windows, which the program leaves to the
// end of its process.
void ReleaseLost(simulator::Server& server);

}  // namespace tests

#endif  // TESTS_SUPPORT_PROCESS_SIMULATED_H_
