#include "support/process.h"

#include "acl/acl_util.h"
#include "common/win/child_process_list.h"
#include "common/win/platform_cache.h"
#include "restore/messages.h"
#include "ui/show_message.h"

namespace tests {

// The locale of the C runtime is not among it: it is set once, to what it then stays.
void ForgetProcess() {
  using common::win::BootOperation;
  acl::ACLUtil::privileges_enabled = false;
  for (const BootOperation operation :
       {BootOperation::kInspect, BootOperation::kExport, BootOperation::kImport,
        BootOperation::kDelete, BootOperation::kRemake}) {
    common::win::CachedPlatform(operation) = common::win::kPlatformUnknown;
  }
  common::win::ChildProcessList::Instance().Forget();
  restore::SetDialog(nullptr);
  ui::SetResourceModule(nullptr);
}

}  // namespace tests
