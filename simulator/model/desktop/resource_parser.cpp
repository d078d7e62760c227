#include "simulator/model/desktop/resource_parser.h"

#include <optional>

#include "simulator/model/desktop/resource_names.h"

namespace simulator {
namespace {

using Kind = ResourceToken::Kind;

}  // namespace

ResourceParser::ResourceParser(std::string_view script, std::string_view names)
    : names_(ReadResourceNames(names)), tokens_(script) {
  Advance();
}

void ResourceParser::Advance() {
  token_ = tokens_.Next();
  if (token_.kind == Kind::kError) Fail(token_.text);
}

void ResourceParser::Fail(const std::string& what) {
  if (error_.empty()) error_ = "line " + std::to_string(token_.line) + ": " + what;
  token_ = {};
  tokens_ = ResourceTokens("");
}

std::optional<uint32_t> ResourceParser::NumberHere() const {
  if (token_.kind == Kind::kNumber) return token_.number;
  if (token_.kind != Kind::kWord) return std::nullopt;
  const auto found = names_.find(token_.text);
  return found != names_.end() ? found->second : SdkResourceNumber(token_.text);
}

uint32_t ResourceParser::ReadNumber() {
  const std::optional<uint32_t> number = NumberHere();
  if (!number) {
    Fail("expected a number or a known name");
    return 0;
  }
  Advance();
  return *number;
}

int ResourceParser::ReadSmallNumber() {
  constexpr uint32_t kLargest = 0xFFFF;
  const bool is_negative = token_.IsSign('-');
  if (is_negative) Advance();
  const uint32_t here = NumberHere().value_or(0);
  if (here > kLargest && here != UINT32_MAX) Fail("a number of more than 16 bits");
  const int number = static_cast<int>(ReadNumber());  // all ones are -1
  return is_negative ? -number : number;
}

std::string ResourceParser::ReadText() {
  if (token_.kind != Kind::kText) {
    Fail("expected a text");
    return {};
  }
  std::string text = token_.text;
  Advance();
  return text;
}

void ResourceParser::ReadComma() {
  if (!token_.IsSign(',')) return Fail("expected a comma");
  Advance();
}

DWORD ResourceParser::ReadStyle(DWORD style) {
  for (;;) {
    const bool takes_away = token_.Is("NOT");
    if (takes_away) Advance();
    const uint32_t bits = ReadNumber();
    style = takes_away ? style & ~bits : style | bits;
    if (!token_.IsSign('|')) return style;
    Advance();
  }
}

LANGID ResourceParser::ReadLanguage() {
  Advance();
  const uint32_t primary = ReadNumber();
  ReadComma();
  const uint32_t sub = ReadNumber();
  return static_cast<LANGID>(MAKELANGID(primary, sub));
}

void ResourceParser::PassOverBlock() {
  int depth = 0;
  do {
    if (token_.IsBegin()) ++depth;
    if (token_.IsEnd()) --depth;
    Advance();
  } while (depth > 0 && !AtEnd());
  if (depth > 0) Fail("a block without an end");
}

void ResourceParser::PassOverWords() {
  while (token_.kind == Kind::kWord && !IsAtNumber()) Advance();
}

}  // namespace simulator
