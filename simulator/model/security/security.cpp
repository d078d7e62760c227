#include "simulator/model/security/security.h"

#include <algorithm>
#include <array>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/well_known_sids.h"

namespace simulator {
namespace {

struct Privilege {
  DWORD luid;
  std::string_view name;
  bool of_administrators;
};

// https://learn.microsoft.com/windows/win32/secauthz/privilege-constants
constexpr auto kPrivileges = std::to_array<Privilege>({
    {2, "SeCreateTokenPrivilege", false},
    {3, "SeAssignPrimaryTokenPrivilege", false},
    {4, "SeLockMemoryPrivilege", false},
    {5, "SeIncreaseQuotaPrivilege", true},
    {6, "SeMachineAccountPrivilege", false},
    {7, "SeTcbPrivilege", false},
    {8, "SeSecurityPrivilege", true},
    {9, "SeTakeOwnershipPrivilege", true},
    {10, "SeLoadDriverPrivilege", true},
    {11, "SeSystemProfilePrivilege", true},
    {12, "SeSystemtimePrivilege", true},
    {13, "SeProfileSingleProcessPrivilege", true},
    {14, "SeIncreaseBasePriorityPrivilege", true},
    {15, "SeCreatePagefilePrivilege", true},
    {16, "SeCreatePermanentPrivilege", false},
    {17, "SeBackupPrivilege", true},
    {18, "SeRestorePrivilege", true},
    {19, "SeShutdownPrivilege", true},
    {20, "SeDebugPrivilege", true},
    {21, "SeAuditPrivilege", false},
    {22, "SeSystemEnvironmentPrivilege", true},
    {23, "SeChangeNotifyPrivilege", true},
    {24, "SeRemoteShutdownPrivilege", true},
    {25, "SeUndockPrivilege", true},
    {26, "SeSyncAgentPrivilege", false},
    {27, "SeEnableDelegationPrivilege", false},
    {28, "SeManageVolumePrivilege", true},
    {29, "SeImpersonatePrivilege", true},
    {30, "SeCreateGlobalPrivilege", true},
    {31, "SeTrustedCredManAccessPrivilege", false},
    {32, "SeRelabelPrivilege", false},
    {33, "SeIncreaseWorkingSetPrivilege", true},
    {34, "SeTimeZonePrivilege", true},
    {35, "SeCreateSymbolicLinkPrivilege", true},
    {36, "SeDelegateSessionUserImpersonatePrivilege", true},
});

constexpr DWORD kChangeNotify = 23;

DWORD NumberOf(std::string_view privilege) {
  const std::optional<LUID> luid = Security::Lookup(privilege);
  if (!luid) Unsupported("the privilege " + std::string(privilege));
  return luid->LowPart;
}

const Sid kMachine{5, {21, 1801674531, 1417001333, 682003330}};

Sid AccountOf(Sid domain, uint32_t number) {
  domain.parts.push_back(number);
  return domain;
}

// The integrity label is no group that a DACL is checked against, and so not among these.
Identity AdministratorOf(const Sid& machine) {
  constexpr uint32_t kAdministrator = 500;
  constexpr uint32_t kNone = 513;  // the one group of a server's own accounts
  Identity identity;
  identity.user = AccountOf(machine, kAdministrator);
  identity.primary_group = AccountOf(machine, kNone);
  identity.groups = {identity.primary_group, kEveryone,       kLocal,
                     kConsoleLogon,          kInteractive,    kAuthenticatedUsers,
                     kThisOrganization,      kLocalAccount,   kLocalAdministrator,
                     kNtlmAuthentication,    kAdministrators, kUsers};
  identity.may_own = {kAdministrators};
  identity.default_owner = kAdministrators;
  return identity;
}

}  // namespace

Security::Security()
    : enabled_({kChangeNotify}),
      domains_(std::make_unique<AccountDomains>(AccountDomains{kMachine, {}})),
      identity_(std::make_unique<const Identity>(AdministratorOf(kMachine))) {
  for (const Privilege& privilege : kPrivileges) {
    if (privilege.of_administrators) held_.insert(privilege.luid);
  }
}

Security::~Security() = default;

const Identity& Security::identity() const { return *identity_; }

const AccountDomains& Security::domains() const { return *domains_; }

void Security::JoinDomain(const Sid& domain) { domains_->domain = domain; }

void Security::Grant(std::string_view privilege) {
  const std::lock_guard lock(mutex_);
  held_.insert(NumberOf(privilege));
}

void Security::Revoke(std::string_view privilege) {
  const std::lock_guard lock(mutex_);
  held_.erase(NumberOf(privilege));
  enabled_.erase(NumberOf(privilege));
}

bool Security::Enabled(std::string_view privilege) const {
  const std::lock_guard lock(mutex_);
  return enabled_.contains(NumberOf(privilege));
}

std::optional<LUID> Security::Lookup(std::string_view privilege) {
  const auto found = std::find_if(
      kPrivileges.begin(), kPrivileges.end(),
      [key = NameKey(privilege)](const Privilege& known) { return NameKey(known.name) == key; });
  if (found == kPrivileges.end()) return std::nullopt;
  return LUID{found->luid, 0};
}

bool Security::SetEnabled(LUID privilege, bool enabled) {
  const std::lock_guard lock(mutex_);
  if (privilege.HighPart != 0 || !held_.contains(privilege.LowPart)) return false;
  if (enabled) {
    enabled_.insert(privilege.LowPart);
  } else {
    enabled_.erase(privilege.LowPart);
  }
  return true;
}

void Security::DisableAll() {
  const std::lock_guard lock(mutex_);
  enabled_ = {kChangeNotify};
}

}  // namespace simulator
