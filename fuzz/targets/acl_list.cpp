// The ACL backup file of a volume, against objects that its lines may name.
#include <share.h>
#include <stdio.h>

#include <algorithm>
#include <string>

#include "acl/account_sid.h"
#include "acl/acl_util.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"
#include "support/process.h"

namespace fuzz {
namespace {

// What the engine returned and reported, on a server and in a process of its own: descriptors that
// were written may well deny the next run its input.
struct Outcome {
  int32_t result;
  std::string report;
};

Outcome Restore(std::string_view list, bool continue_on_error) {
  simulator::Server server;
  server.files().MakeDirectories("C:\\Data\\Deep");
  server.files().Write("C:\\Data\\a.txt", "x");
  server.files().MakeJunction("C:\\Link", "C:\\Data");
  server.files().Write("C:\\acl.dat", std::string(list));
  const tests::NewProcess process;
  Outcome outcome;
  {
    acl::ACLUtil engine;
    engine.SetInputFile("C:\\acl.dat");
    engine.SetContinueOnError(continue_on_error);
    engine.SetOutputStream(common::UniqueFile(::_fsopen("C:\\report.txt", "wb", _SH_DENYNO)));
    common::UniqueLocal<void> administrators;
    Expect(acl::GetAccountSid("Administrators", administrators) == 0,
           "the administrators are known");
    engine.SetAdminSid(std::move(administrators));
    outcome.result = engine.RestoreFromFile(true, 1, {0.0, 100.0});
  }
  outcome.report = server.files().Read("C:\\report.txt").value_or("");
  Expect(server.OpenHandles().empty(), "no handle is left");
  return outcome;
}

}  // namespace

void AclList(std::string_view bytes) {
  const int blocks = simulator::LiveLocalBlocks();
  const Outcome whole = Restore(bytes, true);
  Expect(whole.result == acl::kRestored, "a list that can be read is read to its end");
  Expect(whole.report.starts_with("Input file for restore operation: <C:\\acl.dat>"),
         "a report begins with its input");
  Expect(whole.report.ends_with("\r\n"), "a report ends with a line end");

  const Outcome first = Restore(bytes, false);
  Expect(first.result == acl::kRestored || first.result == acl::kConvertFailed ||
             first.result == acl::kWriteFailed,
         "a line that fails ends the run with its result");
  Expect(whole.report.starts_with(first.report),
         "a run that ends early has done the same until then");
  Expect(simulator::LiveLocalBlocks() == blocks, "no memory of the platform is left");
}

}  // namespace fuzz
