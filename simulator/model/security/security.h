// The access token of the simulated process, and whom it speaks for.
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

// Privileges by name, whatever its case; granting, revoking or asking for one that Windows does not
// have aborts. Thread-safe. At first the token holds what an elevated administrator's holds, with
// only SeChangeNotifyPrivilege enabled.
class Security {
 public:
  Security();
  ~Security();
  Security(const Security&) = delete;
  Security& operator=(const Security&) = delete;

  void Grant(std::string_view privilege);
  void Revoke(std::string_view privilege);  // the token does not hold it at all any more
  bool Enabled(std::string_view privilege) const;

  // For the calls of the program. LUIDs are those that Windows gives the names: 17 is
  // SeBackupPrivilege.
  static std::optional<LUID> Lookup(std::string_view privilege);
  // False when the token does not hold it.
  bool SetEnabled(LUID privilege, bool enabled);
  // But for SeChangeNotifyPrivilege: the token of a new process.
  void DisableAll();

  // The server's own Administrator, elevated. Neither changes while the program runs.
  const Identity& identity() const;
  const AccountDomains& domains() const;
  // Without this the server is in no domain.
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
