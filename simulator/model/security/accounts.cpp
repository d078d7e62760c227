#include "simulator/model/security/accounts.h"

#include "simulator/model/common/path_name.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/well_known_sids.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

// Primary languages, the low bits of a LANGID.
constexpr WORD kPrimaryBits = 0x3FF;
constexpr WORD kGerman = 0x07;

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

struct LanguageName {
  WORD language;
  const char* name;
};

constexpr LanguageName kAdministratorsNames[] = {
    {0x06, "Administratorer"},       // Danish
    {0x0A, "Administradores"},       // Spanish
    {0x0B, "Järjestelmänvalvojat"},  // Finnish
    {0x0C, "Administrateurs"},       // French
    {0x0E, "Rendszergazdák"},        // Hungarian
    {0x14, "Administratorer"},       // Norwegian
    {0x15, "Administratorzy"},       // Polish
    {0x16, "Administradores"},       // Portuguese
    {0x19, "Администраторы"},        // Russian
    {0x1D, "Administratörer"},       // Swedish
};

std::string InLanguage(const Names& names, LANGID language) {
  return (language & kPrimaryBits) == kGerman ? names.german : names.english;
}

std::string NameOf(const KnownAccount& known, LANGID language) {
  if (known.sid == kAdministrators) {
    for (const LanguageName& other : kAdministratorsNames) {
      if (other.language == (language & kPrimaryBits)) return other.name;
    }
  }
  return InLanguage(known.names, language);
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
    const std::string alone = NameKey(NameOf(known, system.language));
    std::string full = NameKey(domain);
    full.append("\\").append(alone);
    if (wanted == alone || (!domain.empty() && wanted == full)) {
      return Account{SidOf(known, domains), known.use, domain};
    }
  }
  return std::nullopt;
}

}  // namespace simulator
