// The parts of a descriptor's text, read from left to right. Comparisons ignore the case of
// letters.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_PARTS_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_PARTS_H_

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

inline char SddlUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

inline bool IsSameWord(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return SddlUpper(x) == SddlUpper(y); });
}

class SddlCursor {
 public:
  explicit SddlCursor(std::string_view text) : rest_(text) {}

  std::string_view rest() const { return rest_; }
  bool AtEnd() const { return rest_.empty(); }
  char Peek() const { return rest_.empty() ? '\0' : rest_.front(); }
  bool IsNext(std::string_view word) const {
    return IsSameWord(rest_.substr(0, word.size()), word);
  }

  std::string_view Take(size_t size) {
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  // Returns true and removes the word if it comes next; otherwise returns false.
  bool Take(std::string_view word) {
    if (!IsNext(word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  template <typename Predicate>
  std::string_view TakeWhile(Predicate belongs) {
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), belongs);
    return Take(static_cast<size_t>(end - rest_.begin()));
  }

  void SkipBlanks() {
    TakeWhile([](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  }

 private:
  std::string_view rest_;
};

// Reads an ACE such as "(A;OICI;FA;;;BA)". Returns ERROR_SUCCESS, the error code of TakeSid, or
// ERROR_INVALID_ACL.
DWORD TakeAce(SddlCursor& text, const AccountDomains& domains, Ace* ace);

std::string AceText(const Ace& ace, const AccountDomains& domains);

// Reads names and numbers in C notation ("FRSD", "0x1301bf"), or an empty field. A number that is
// too large means all rights. Returns false if a number has no digits.
bool TakeRights(SddlCursor& text, ACCESS_MASK* mask);

// Returns the name of exactly this mask, the names of each of its bits, or a hexadecimal number.
std::string RightsText(BYTE ace_type, ACCESS_MASK mask);

// Reads an alias or the S-1- form. Returns ERROR_NONE_MAPPED for an alias of a domain if the server
// has not joined one, or ERROR_INVALID_SID for other text that is not a SID.
DWORD TakeSid(SddlCursor& text, const AccountDomains& domains, Sid* sid);

// Returns the alias if there is one; otherwise returns the S-1- form.
std::string ShortSidText(const Sid& sid, const AccountDomains& domains);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_PARTS_H_
