#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <utility>
#include <vector>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/security/account_domains.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_condition.h"
#include "simulator/model/security/sddl_literals.h"
#include "simulator/model/security/sddl_sids.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {
namespace {

using condition::Word;

template <typename Words>
const Word* WordOf(const Words& words, BYTE token) {
  const auto found = std::find_if(words.begin(), words.end(),
                                  [token](const Word& word) { return word.token == token; });
  return found == words.end() ? nullptr : &*found;
}

std::string TakeSized(ByteReader& code) {
  const auto size = code.Take<DWORD>();
  return std::string(code.Take(size));
}

std::string TakeIntegerText(ByteReader& code) {
  SddlInteger integer;
  integer.magnitude = code.Take<uint64_t>();
  const BYTE sign = code.Take<BYTE>();
  const BYTE base = code.Take<BYTE>();
  if (sign < 1 || sign > 3 || base < 1 || base > 3) code.Fail();
  if (sign == 1) integer.sign = '+';
  if (sign == 2) {
    integer.sign = '-';
    integer.magnitude = 0 - integer.magnitude;
  }
  integer.base = base == 1 ? 8 : base == 2 ? 10 : 16;
  return IntegerText(integer);
}

std::string NameText(const std::string& name, bool is_claim) {
  std::ostringstream text;
  for (const char c : name) {
    if (is_claim ? condition::IsNameCharacter(c) : condition::IsSimpleNameCharacter(c)) {
      text << c;
    } else {
      text << "%00" << HexByteText(static_cast<uint8_t>(c));
    }
  }
  return text.str();
}

class ConditionPrinter {
 public:
  ConditionPrinter(std::string_view code, const AccountDomains& domains)
      : code_(code), domains_(domains) {}

  std::optional<std::string> Print() {
    if (code_.Take(condition::kSignature.size()) != condition::kSignature) return std::nullopt;
    while (code_.ok() && !code_.rest().empty()) Step();
    if (!code_.ok() || stack_.size() != 1) return std::nullopt;
    return "(" + stack_.front().text + ")";
  }

 private:
  struct Term {
    std::string text;
    bool is_expression;  // of operators, not a value
  };

  void Step() {
    const BYTE token = code_.Take<BYTE>();
    if (token == condition::kPadding) return;
    if (const Word* const prefix = WordOf(condition::kAttributePrefixes, token)) {
      const std::string name = Utf8FromUtf16Bytes(TakeSized(code_));
      const bool is_claim = token != condition::kLocalAttribute;
      Push(std::string(prefix->text) + NameText(name, is_claim), false);
    } else if (const Word* const comparison = WordOf(condition::kComparisons, token)) {
      const Term right = Pop();
      const Term left = Pop();
      Push(left.text + " " + std::string(comparison->text) + " " + right.text, true);
    } else if (token == condition::kAnd || token == condition::kOr) {
      const Term right = Pop();
      const Term left = Pop();
      Push(Operand(left) + (token == condition::kAnd ? " && " : " || ") + Operand(right), true);
    } else if (token == condition::kNot) {
      Push("!(" + Pop().text + ")", true);
    } else if (const Word* const unary = UnaryWord(token)) {
      Push(std::string(unary->text) + " " + Pop().text, true);
    } else {
      Push(LiteralText(token, code_), false);
    }
  }

  std::string LiteralText(BYTE token, ByteReader& code) {
    if (token >= condition::kInt8 && token <= condition::kInt64) return TakeIntegerText(code);
    const std::string value = TakeSized(code);
    if (token == condition::kString) return "\"" + Utf8FromUtf16Bytes(value) + "\"";
    if (token == condition::kOctets) return OctetsText(value);
    if (token == condition::kSid) {
      if (const std::optional<Sid> sid = ReadSid(value)) {
        return "SID(" + ShortSidText(*sid, domains_) + ")";
      }
    } else if (token == condition::kComposite) {
      return CompositeText(value);
    }
    code.Fail();
    return "";
  }

  std::string CompositeText(const std::string& value) {
    std::string text;
    ByteReader elements(value);
    while (elements.ok() && !elements.rest().empty()) {
      const BYTE token = elements.Take<BYTE>();
      if (token == condition::kComposite) elements.Fail();
      if (!text.empty()) text += ", ";
      text += LiteralText(token, elements);
    }
    if (!elements.ok()) code_.Fail();
    return "{" + text + "}";
  }

  static const Word* UnaryWord(BYTE token) {
    const Word* const membership = WordOf(condition::kMemberships, token);
    return membership != nullptr ? membership : WordOf(condition::kExistences, token);
  }

  static std::string Operand(const Term& term) {
    return term.is_expression ? "(" + term.text + ")" : term.text;
  }

  void Push(std::string text, bool is_expression) {
    stack_.push_back({std::move(text), is_expression});
  }

  Term Pop() {
    if (stack_.empty()) {
      code_.Fail();
      return {};
    }
    Term term = std::move(stack_.back());
    stack_.pop_back();
    return term;
  }

  ByteReader code_;
  const AccountDomains& domains_;
  std::vector<Term> stack_;
};

}  // namespace

std::optional<std::string> ConditionText(std::string_view code, const AccountDomains& domains) {
  return ConditionPrinter(code, domains).Print();
}

}  // namespace simulator
