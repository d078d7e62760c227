// A resource script taken apart into words, numbers, texts and signs.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_TOKENS_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_TOKENS_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace simulator {

// Decimal, or hexadecimal after "0x"; nothing when it is neither or has more than 32 bits.
std::optional<uint32_t> ParseResourceNumber(std::string_view text);

struct ResourceToken {
  enum class Kind { kEnd, kWord, kNumber, kText, kSign, kError };

  Kind kind = Kind::kEnd;
  std::string text;     // of kError: what is wrong
  uint32_t number = 0;  // of kNumber
  int line = 1;

  bool Is(std::string_view word) const;  // keywords have no case
  bool IsSign(char sign) const { return kind == Kind::kSign && text.front() == sign; }
  bool IsBegin() const { return Is("BEGIN") || IsSign('{'); }
  bool IsEnd() const { return Is("END") || IsSign('}'); }
};

// Passes over blanks, comments, #include and #pragma; another line with # is an error.
class ResourceTokens {
 public:
  explicit ResourceTokens(std::string_view script) : rest_(script) {}

  ResourceToken Next();  // kEnd again and again at the end

 private:
  bool SkipBlanks();  // false for a line with # that is not honoured
  void Skip(size_t length);
  ResourceToken Text();
  ResourceToken Token(ResourceToken::Kind kind, std::string text) const;

  std::string_view rest_;
  int line_ = 1;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_TOKENS_H_
