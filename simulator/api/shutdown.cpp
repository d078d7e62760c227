// Shutting the system down.
#include "simulator/model/desktop/shutdown.h"

#include <windows.h>

#include "simulator/api/call.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

using simulator::Call;
using simulator::Unsupported;

BOOL WINAPI InitiateSystemShutdownW(LPWSTR machine_name, LPWSTR message, DWORD timeout,
                                    BOOL force_apps_closed, BOOL reboot_after_shutdown) {
  if (machine_name != nullptr) Unsupported("InitiateSystemShutdownW: another machine");
  const Call call("InitiateSystemShutdownW", message, timeout, force_apps_closed,
                  reboot_after_shutdown);
  if (call.fails()) return FALSE;
  simulator::Server& server = call.server();
  if (!server.security().Enabled("SeShutdownPrivilege")) return call.Done(ERROR_ACCESS_DENIED);
  return call.Done(server.shutdown().Schedule(
      {message != nullptr ? simulator::Utf8FromWide(message) : "", timeout,
       force_apps_closed != FALSE, reboot_after_shutdown != FALSE}));
}
