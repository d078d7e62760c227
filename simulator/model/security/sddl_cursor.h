// Reads a descriptor's text from left to right. Comparisons ignore the case of letters.
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_CURSOR_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_CURSOR_H_

#include <algorithm>
#include <cstddef>
#include <string_view>

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

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_CURSOR_H_
