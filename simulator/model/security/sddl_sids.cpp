#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <system_error>

#include "simulator/model/security/sddl_parts.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {
namespace {

enum class Scope {
  kBuiltin,  // S-1-5-32-<number>
  kNt,       // S-1-5-<number>
  kLabel,    // S-1-16-<number>
  kMachine,
  kDomain,
  kOther,
};

struct Alias {
  std::string_view name;
  Scope scope;
  uint32_t number;  // the last part
};

// https://learn.microsoft.com/windows/win32/secauthz/sid-strings
// The groups of a forest ("EA") are taken for those of the server's own domain.
constexpr auto kAliases = std::to_array<Alias>({
    {"AA", Scope::kBuiltin, 579}, {"AN", Scope::kNt, 7},        {"AO", Scope::kBuiltin, 548},
    {"AP", Scope::kDomain, 525},  {"AU", Scope::kNt, 11},       {"BA", Scope::kBuiltin, 544},
    {"BG", Scope::kBuiltin, 546}, {"BO", Scope::kBuiltin, 551}, {"BU", Scope::kBuiltin, 545},
    {"CA", Scope::kDomain, 517},  {"CD", Scope::kBuiltin, 574}, {"CN", Scope::kDomain, 522},
    {"CY", Scope::kBuiltin, 569}, {"DA", Scope::kDomain, 512},  {"DC", Scope::kDomain, 515},
    {"DD", Scope::kDomain, 516},  {"DG", Scope::kDomain, 514},  {"DU", Scope::kDomain, 513},
    {"EA", Scope::kDomain, 519},  {"ED", Scope::kNt, 9},        {"EK", Scope::kDomain, 527},
    {"ER", Scope::kBuiltin, 573}, {"ES", Scope::kBuiltin, 576}, {"HA", Scope::kBuiltin, 578},
    {"HI", Scope::kLabel, 12288}, {"HO", Scope::kBuiltin, 584}, {"IS", Scope::kBuiltin, 568},
    {"IU", Scope::kNt, 4},        {"KA", Scope::kDomain, 526},  {"LA", Scope::kMachine, 500},
    {"LG", Scope::kMachine, 501}, {"LS", Scope::kNt, 19},       {"LU", Scope::kBuiltin, 559},
    {"LW", Scope::kLabel, 4096},  {"ME", Scope::kLabel, 8192},  {"MP", Scope::kLabel, 8448},
    {"MS", Scope::kBuiltin, 577}, {"MU", Scope::kBuiltin, 558}, {"NO", Scope::kBuiltin, 556},
    {"NS", Scope::kNt, 20},       {"NU", Scope::kNt, 2},        {"PA", Scope::kDomain, 520},
    {"PO", Scope::kBuiltin, 550}, {"PS", Scope::kNt, 10},       {"PU", Scope::kBuiltin, 547},
    {"RA", Scope::kBuiltin, 575}, {"RC", Scope::kNt, 12},       {"RD", Scope::kBuiltin, 555},
    {"RE", Scope::kBuiltin, 552}, {"RM", Scope::kBuiltin, 580}, {"RO", Scope::kDomain, 498},
    {"RS", Scope::kDomain, 553},  {"RU", Scope::kBuiltin, 554}, {"SA", Scope::kDomain, 518},
    {"SI", Scope::kLabel, 16384}, {"SO", Scope::kBuiltin, 549}, {"SU", Scope::kNt, 6},
    {"SY", Scope::kNt, 18},       {"WR", Scope::kNt, 33},       {"AC", Scope::kOther, 1},
    {"AS", Scope::kOther, 1},     {"CG", Scope::kOther, 1},     {"CO", Scope::kOther, 0},
    {"OW", Scope::kOther, 4},     {"SS", Scope::kOther, 2},     {"UD", Scope::kOther, 0},
    {"WD", Scope::kOther, 0},
});

Sid OtherSid(std::string_view alias) {
  if (alias == "AC") return {15, {2, 1}};
  if (alias == "AS") return {18, {1}};
  if (alias == "CG") return {3, {1}};
  if (alias == "CO") return {3, {0}};
  if (alias == "OW") return {3, {4}};
  if (alias == "SS") return {18, {2}};
  if (alias == "UD") return {5, {84, 0, 0, 0, 0, 0}};
  return {1, {0}};
}

// Nothing for an alias of a domain when there is none.
std::optional<Sid> SidOf(const Alias& alias, const AccountDomains& domains) {
  const auto in = [&alias](Sid domain) {
    domain.parts.push_back(alias.number);
    return domain;
  };
  switch (alias.scope) {
    case Scope::kBuiltin:
      return in({5, {32}});
    case Scope::kNt:
      return in({5, {}});
    case Scope::kLabel:
      return in({16, {}});
    case Scope::kMachine:
      return in(domains.machine);
    case Scope::kDomain:
      return domains.domain ? std::optional(in(*domains.domain)) : std::nullopt;
    case Scope::kOther:
      break;
  }
  return OtherSid(alias.name);
}

// Decimal, or hexadecimal behind "0x". What is too large becomes the largest.
bool ReadPart(std::string_view text, uint64_t largest, uint64_t* number) {
  const bool is_hexadecimal = IsSameWord(text.substr(0, 2), "0x");
  if (is_hexadecimal) text.remove_prefix(2);
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, *number, is_hexadecimal ? 16 : 10);
  if (error == std::errc::result_out_of_range) *number = largest;
  *number = std::min(*number, largest);
  return error != std::errc::invalid_argument && rest == end;
}

// Takes one part of the S-1- form, up to the next hyphen.
std::string_view TakePart(std::string_view& parts) {
  const std::string_view part = parts.substr(0, parts.find('-'));
  parts.remove_prefix(std::min(part.size() + 1, parts.size()));
  return part;
}

bool IsPartOfNumber(char c) {
  const char upper = SddlUpper(c);
  return (upper >= '0' && upper <= '9') || (upper >= 'A' && upper <= 'F') || upper == 'X' ||
         upper == '-';
}

// `text` is what follows "S-1-".
bool ReadLongForm(std::string_view text, Sid* sid) {
  if (text.empty() || text.back() == '-') return false;
  constexpr uint64_t kLargestAuthority = 0xFFFF'FFFF'FFFF;
  *sid = {};
  if (!ReadPart(TakePart(text), kLargestAuthority, &sid->authority)) return false;
  while (!text.empty()) {
    uint64_t part = 0;
    if (!ReadPart(TakePart(text), UINT32_MAX, &part)) return false;
    sid->parts.push_back(static_cast<uint32_t>(part));
    if (sid->parts.size() > SID_MAX_SUB_AUTHORITIES) return false;
  }
  return !sid->parts.empty();
}

}  // namespace

DWORD TakeSid(SddlCursor& text, const AccountDomains& domains, Sid* sid) {
  if (text.Take("S-1-")) {
    std::string_view parts = SddlCursor(text).TakeWhile(IsPartOfNumber);
    // "...-0xFD:(A;;..." is the end of the SID 0xF and the beginning of a DACL.
    const bool part_follows = text.rest().substr(parts.size()).starts_with(':');
    if (part_follows && !parts.empty() && SddlUpper(parts.back()) == 'D') parts.remove_suffix(1);
    text.Take(parts.size());
    return ReadLongForm(parts, sid) ? ERROR_SUCCESS : ERROR_INVALID_SID;
  }
  const auto alias = std::find_if(kAliases.begin(), kAliases.end(),
                                  [&text](const Alias& known) { return text.IsNext(known.name); });
  if (alias == kAliases.end()) return ERROR_INVALID_SID;
  text.Take(alias->name.size());
  const std::optional<Sid> found = SidOf(*alias, domains);
  if (!found) return ERROR_NONE_MAPPED;
  *sid = *found;
  return ERROR_SUCCESS;
}

std::string ShortSidText(const Sid& sid, const AccountDomains& domains) {
  const auto alias =
      std::find_if(kAliases.begin(), kAliases.end(), [&sid, &domains](const Alias& known) {
        return !sid.parts.empty() && known.number == sid.parts.back() &&
               SidOf(known, domains) == sid;
      });
  return alias == kAliases.end() ? SidText(sid) : std::string(alias->name);
}

std::optional<Sid> ParseSid(std::string_view text, const AccountDomains& domains) {
  SddlCursor cursor(text);
  Sid sid;
  if (TakeSid(cursor, domains, &sid) != ERROR_SUCCESS || !cursor.AtEnd()) return std::nullopt;
  return sid;
}

std::string SidText(const Sid& sid) {
  std::ostringstream text;
  text << "S-1-";
  if (sid.authority > UINT32_MAX) {
    text << "0x" << std::hex << std::setw(12) << std::setfill('0') << sid.authority << std::dec;
  } else {
    text << sid.authority;
  }
  for (const uint32_t part : sid.parts) text << '-' << part;
  return text.str();
}

}  // namespace simulator
