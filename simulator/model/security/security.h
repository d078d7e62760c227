// The access token of the simulated process, and its identity.
#ifndef SIMULATOR_MODEL_SECURITY_SECURITY_H_
#define SIMULATOR_MODEL_SECURITY_SECURITY_H_

#include <windows.h>

#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string_view>

namespace simulator {

struct AccountDomains;
struct Identity;
struct Sid;

// Privileges are identified by name, in any case. Granting, revoking or querying a privilege that
// does not exist on Windows aborts. At first the token has the privileges of an elevated
// administrator, of which only SeChangeNotifyPrivilege is enabled. Thread-safe.
class Security {
 public:
  Security();
  ~Security();
  Security(const Security&) = delete;
  Security& operator=(const Security&) = delete;

  void Grant(std::string_view privilege);
  void Revoke(std::string_view privilege);  // removes it from the token
  bool Enabled(std::string_view privilege) const;

  // For the functions that the program calls. LUIDs are those of Windows: 17 is SeBackupPrivilege.
  static std::optional<LUID> Lookup(std::string_view privilege);
  // Returns false if the token does not hold the privilege.
  bool SetEnabled(LUID privilege, bool enabled);
  // Disables all privileges except SeChangeNotifyPrivilege, as in the token of a new process.
  void DisableAll();

  // The identity is that of the server's own Administrator, elevated. Neither of the two changes
  // while the program runs.
  const Identity& identity() const;
  const AccountDomains& domains() const;
  // Makes the server a member of a domain. At first it is not a member of any.
  void JoinDomain(const Sid& domain);

 private:
  mutable std::mutex mutex_;
  std::set<DWORD> held_;  // low parts of LUIDs; the high parts are 0
  std::set<DWORD> enabled_;
  const std::unique_ptr<AccountDomains> domains_;
  const std::unique_ptr<const Identity> identity_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SECURITY_H_
