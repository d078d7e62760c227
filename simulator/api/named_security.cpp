// Security descriptors of files by name.
#include <windows.h>

#include <aclapi.h>

#include <optional>

#include "simulator/api/ansi.h"
#include "simulator/api/call.h"
#include "simulator/api/medium.h"
#include "simulator/api/security_parts.h"
#include "simulator/model/files/files.h"
#include "simulator/model/security/descriptor.h"

namespace simulator {
namespace {

constexpr SECURITY_INFORMATION kHonoured =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION |
    SACL_SECURITY_INFORMATION | UNPROTECTED_SACL_SECURITY_INFORMATION |
    UNPROTECTED_DACL_SECURITY_INFORMATION | PROTECTED_SACL_SECURITY_INFORMATION |
    PROTECTED_DACL_SECURITY_INFORMATION;

// Nothing for null and for what is no SID.
std::optional<Sid> ReadSidAt(PSID sid) {
  return sid == nullptr ? std::nullopt : ReadSid(SidBytesAt(sid));
}

// Nothing stands for a null list.
DWORD ReadList(PACL given, std::optional<Acl>* list) {
  if (given == nullptr) return ERROR_SUCCESS;
  *list = ReadAcl(AclBytesAt(given));
  return *list ? ERROR_SUCCESS : ERROR_INVALID_ACL;
}

}  // namespace
}  // namespace simulator

DWORD WINAPI SetNamedSecurityInfoA(LPSTR object_name, SE_OBJECT_TYPE object_type,
                                   SECURITY_INFORMATION information, PSID owner, PSID group,
                                   PACL dacl, PACL sacl) {
  using simulator::Call;
  if (object_type != SE_FILE_OBJECT) {
    simulator::Unsupported("SetNamedSecurityInfoA: what is no file");
  }
  if ((information & ~simulator::kHonoured) != 0) {
    simulator::Unsupported("SetNamedSecurityInfoA: such information");
  }
  const Call call("SetNamedSecurityInfoA", object_name, information, owner, group, dacl, sacl);
  // The code is the result; the last error tells nothing.
  const auto result = [&call](DWORD error) { return call.Succeed(error); };
  if (call.fails()) return result(::GetLastError());
  if (object_name == nullptr) return result(ERROR_INVALID_PARAMETER);

  simulator::SecurityChange change;
  change.information = information;
  DWORD error = ERROR_SUCCESS;
  if ((information & OWNER_SECURITY_INFORMATION) != 0)
    change.parts.owner = simulator::ReadSidAt(owner);
  if ((information & GROUP_SECURITY_INFORMATION) != 0)
    change.parts.group = simulator::ReadSidAt(group);
  if ((information & DACL_SECURITY_INFORMATION) != 0) {
    error = simulator::ReadList(dacl, &change.parts.dacl);
  }
  if (error == ERROR_SUCCESS && (information & SACL_SECURITY_INFORMATION) != 0) {
    error = simulator::ReadList(sacl, &change.parts.sacl);
  }
  if (error == ERROR_SUCCESS) {
    const std::string path = simulator::FromAnsi(call, object_name);
    error = simulator::AccessMedium(
        call.server(), path, [&] { return call.server().file_system().SetSecurity(path, change); });
  }
  return result(error);
}
