#include "simulator/model/accounts.h"

#include "simulator/model/path_name.h"
#include "simulator/model/unsupported.h"
#include "simulator/model/well_known_sids.h"

namespace simulator {
namespace {

constexpr LANGID kGerman = 1031;
constexpr LANGID kEnglish = 1033;
constexpr LANGID kChinese = 2052;

enum class Domain { kNone, kBuiltin, kNtAuthority, kServer };

struct Names {
  const char* english;
  const char* german;
};

constexpr Names kBuiltinDomain = {"BUILTIN", "VORDEFINIERT"};
constexpr Names kNtAuthorityDomain = {"NT AUTHORITY", "NT-AUTORITÄT"};

struct KnownAccount {
  Names names;
  Domain domain;
  SID_NAME_USE use;
  Sid sid;  // of an account of the server: what follows the server's own
};

const KnownAccount kAccounts[] = {
    {{"Administrators", "Administratoren"}, Domain::kBuiltin, SidTypeAlias, kAdministrators},
    {{"Users", "Benutzer"}, Domain::kBuiltin, SidTypeAlias, kUsers},
    {{"Guests", "Gäste"}, Domain::kBuiltin, SidTypeAlias, {5, {32, 546}}},
    {{"Backup Operators", "Sicherungs-Operatoren"}, Domain::kBuiltin, SidTypeAlias, {5, {32, 551}}},
    {{"Everyone", "Jeder"}, Domain::kNone, SidTypeWellKnownGroup, kEveryone},
    {{"CREATOR OWNER", "ERSTELLER-BESITZER"}, Domain::kNone, SidTypeWellKnownGroup, kCreatorOwner},
    {{"SYSTEM", "SYSTEM"}, Domain::kNtAuthority, SidTypeWellKnownGroup, kLocalSystem},
    {{"Authenticated Users", "Authentifizierte Benutzer"},
     Domain::kNtAuthority,
     SidTypeWellKnownGroup,
     kAuthenticatedUsers},
    {{"Administrator", "Administrator"}, Domain::kServer, SidTypeUser, {0, {500}}},
    {{"Guest", "Gast"}, Domain::kServer, SidTypeUser, {0, {501}}},
};

std::string InLanguage(const Names& names, LANGID language) {
  switch (language) {
    case kEnglish:
    case kChinese:  // keeps the English names
      return names.english;
    case kGerman:
      return names.german;
    default:
      Unsupported("account names in the language " + std::to_string(language));
  }
}

std::string DomainName(Domain domain, const System& system) {
  switch (domain) {
    case Domain::kBuiltin:
      return InLanguage(kBuiltinDomain, system.language);
    case Domain::kNtAuthority:
      return InLanguage(kNtAuthorityDomain, system.language);
    case Domain::kServer:
      return system.computer_name;
    case Domain::kNone:
      break;
  }
  return {};
}

Sid SidOf(const KnownAccount& known, const AccountDomains& domains) {
  if (known.domain != Domain::kServer) return known.sid;
  Sid sid = domains.machine;
  sid.parts.insert(sid.parts.end(), known.sid.parts.begin(), known.sid.parts.end());
  return sid;
}

}  // namespace

std::optional<Account> FindAccount(std::string_view name, const System& system,
                                   const AccountDomains& domains) {
  const std::string wanted = NameKey(name);
  for (const KnownAccount& known : kAccounts) {
    const std::string domain = DomainName(known.domain, system);
    const std::string alone = NameKey(InLanguage(known.names, system.language));
    std::string full = NameKey(domain);
    full.append("\\").append(alone);
    if (wanted == alone || (!domain.empty() && wanted == full)) {
      return Account{SidOf(known, domains), known.use, domain};
    }
  }
  return std::nullopt;
}

}  // namespace simulator
