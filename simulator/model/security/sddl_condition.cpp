#include "simulator/model/security/sddl_condition.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/security/account_domains.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_literals.h"
#include "simulator/model/security/sddl_sids.h"

namespace simulator {
namespace {

using condition::Word;

constexpr int kDeepest = 100;  // brackets and negations within one another

bool IsWordCharacter(char c) { return condition::IsSimpleNameCharacter(c); }

// A word of letters counts only where it ends.
template <typename Words>
const Word* TakeOneOf(const Words& words, SddlCursor& text) {
  for (const Word& word : words) {
    SddlCursor ahead = text;
    if (!ahead.Take(word.text)) continue;
    if (IsWordCharacter(word.text.back()) && IsWordCharacter(ahead.Peek())) continue;
    text = ahead;
    return &word;
  }
  return nullptr;
}

void AppendSized(BYTE token, const std::string& value, std::string& code) {
  AppendNumber(token, code);
  AppendNumber(static_cast<DWORD>(value.size()), code);
  code += value;
}

void AppendInteger(const SddlInteger& integer, std::string& code) {
  AppendNumber(BYTE{condition::kInt64}, code);
  AppendNumber(integer.Value(), code);
  AppendNumber(static_cast<BYTE>(integer.sign == '+' ? 1 : integer.sign == '-' ? 2 : 3), code);
  AppendNumber(static_cast<BYTE>(integer.base == 8 ? 1 : integer.base == 10 ? 2 : 3), code);
}

// "%0022" is a quotation mark.
std::string TakeName(SddlCursor& text, bool is_claim) {
  std::string name;
  while (true) {
    name +=
        text.TakeWhile(is_claim ? condition::IsNameCharacter : condition::IsSimpleNameCharacter);
    const std::string_view rest = text.rest();
    uint16_t unit = 0;
    if (!is_claim || rest.size() < 5 || rest.front() != '%') return name;
    const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + 5, unit, 16);
    if (error != std::errc() || end != rest.data() + 5) return name;
    text.Take(5);
    name += Utf8FromWide(std::wstring(1, static_cast<wchar_t>(unit)));
  }
}

class ConditionReader {
 public:
  ConditionReader(SddlCursor& text, const AccountDomains& domains)
      : text_(text), domains_(domains) {}

  // Each takes what it names and appends its code; false when it does not come next.
  bool Bracketed() {
    if (!text_.Take("(") || ++depth_ > kDeepest || !Any()) return false;
    --depth_;
    return text_.Take(")");
  }

  const std::string& code() const { return code_; }

 private:
  bool Any() { return Joined("||", condition::kOr, &ConditionReader::All); }
  bool All() { return Joined("&&", condition::kAnd, &ConditionReader::Term); }

  bool Joined(std::string_view word, BYTE token, bool (ConditionReader::*part)()) {
    if (!(this->*part)()) return false;
    while (text_.Take(word)) {
      const int left = printed_depth_;
      if (!(this->*part)()) return false;
      printed_depth_ = std::max(left, printed_depth_) + 1;
      if (printed_depth_ >= kDeepest) return false;
      AppendNumber(token, code_);
    }
    return true;
  }

  bool Term() {
    text_.SkipBlanks();
    const bool is_term = BareTerm();
    text_.SkipBlanks();
    return is_term;
  }

  bool BareTerm() {
    if (text_.Peek() == '(') return Bracketed();
    if (text_.Take("!")) {
      if (++depth_ > kDeepest || !Term()) return false;
      --depth_;
      printed_depth_ += 2;
      if (printed_depth_ >= kDeepest) return false;
      AppendNumber(BYTE{condition::kNot}, code_);
      return true;
    }
    printed_depth_ = 0;
    if (const Word* const membership = TakeOneOf(condition::kMemberships, text_)) {
      text_.SkipBlanks();
      const bool are_sids =
          text_.Peek() == '{' ? Composite(&ConditionReader::SidLiteral) : SidLiteral();
      AppendNumber(membership->token, code_);
      return are_sids;
    }
    if (const Word* const existence = TakeOneOf(condition::kExistences, text_)) {
      text_.SkipBlanks();
      const bool is_attribute = Attribute();
      AppendNumber(existence->token, code_);
      return is_attribute;
    }
    return Comparison();
  }

  // An attribute alone is true unless it is 0 or empty.
  bool Comparison() {
    if (!Attribute()) return false;
    text_.SkipBlanks();
    const Word* const comparison = TakeOneOf(condition::kComparisons, text_);
    if (comparison == nullptr) return true;
    text_.SkipBlanks();
    bool is_operand = false;
    if (text_.Peek() == '@') {
      is_operand = Attribute();
    } else if (text_.Peek() == '{') {
      is_operand = Composite(&ConditionReader::Literal);
    } else {
      is_operand = Literal();
    }
    AppendNumber(comparison->token, code_);
    return is_operand;
  }

  bool Attribute() {
    const auto prefix =
        std::find_if(condition::kAttributePrefixes.begin(), condition::kAttributePrefixes.end(),
                     [this](const Word& word) { return text_.Take(word.text); });
    const std::string name = TakeName(text_, prefix->token != condition::kLocalAttribute);
    AppendSized(prefix->token, Utf16Bytes(name), code_);
    return !name.empty();
  }

  bool Composite(bool (ConditionReader::*element)()) {
    text_.Take("{");
    std::string outer;
    outer.swap(code_);
    bool is_list = false;
    do {
      text_.SkipBlanks();
      is_list = (this->*element)();
      text_.SkipBlanks();
    } while (is_list && text_.Take(","));
    outer.swap(code_);
    AppendSized(condition::kComposite, outer, code_);
    return is_list && text_.Take("}");
  }

  bool SidLiteral() {
    Sid sid;
    if (!text_.Take("SID")) return false;
    text_.SkipBlanks();
    if (!text_.Take("(")) return false;
    text_.SkipBlanks();
    if (TakeSid(text_, domains_, &sid) != ERROR_SUCCESS) return false;
    text_.SkipBlanks();
    AppendSized(condition::kSid, SidBytes(sid), code_);
    return text_.Take(")");
  }

  bool Literal() {
    if (const std::optional<std::string> quoted = TakeQuoted(text_)) {
      AppendSized(condition::kString, Utf16Bytes(*quoted), code_);
      return true;
    }
    if (const std::optional<std::string> octets = TakeOctets(text_)) {
      AppendSized(condition::kOctets, *octets, code_);
      return true;
    }
    if (const std::optional<SddlInteger> integer = TakeInteger(text_)) {
      AppendInteger(*integer, code_);
      return integer->FitsSigned();
    }
    return SidLiteral();
  }

  SddlCursor& text_;
  const AccountDomains& domains_;
  std::string code_{condition::kSignature};
  int depth_ = 0;
  // Of the last term: that of its text as it is printed, where every operand is in brackets.
  int printed_depth_ = 0;
};

}  // namespace

bool condition::IsSimpleNameCharacter(char c) {
  const char upper = SddlUpper(c);
  return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9') ||
         (c != '\0' && std::string_view(":./_").find(c) != std::string_view::npos) ||
         static_cast<BYTE>(c) >= 0x80;
}

bool condition::IsNameCharacter(char c) {
  return IsSimpleNameCharacter(c) ||
         (c != '\0' && std::string_view("#$'*+-;?@[\\]^_`{}~").find(c) != std::string_view::npos);
}

std::optional<std::string> TakeCondition(SddlCursor& text, const AccountDomains& domains) {
  ConditionReader reader(text, domains);
  if (!reader.Bracketed()) return std::nullopt;
  return reader.code();
}

}  // namespace simulator
