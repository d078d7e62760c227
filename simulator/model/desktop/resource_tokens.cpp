#include "simulator/model/desktop/resource_tokens.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "simulator/model/common/path_name.h"

namespace simulator {
namespace {

using Kind = ResourceToken::Kind;

constexpr std::string_view kWordCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_.";

}  // namespace

std::optional<uint32_t> ParseResourceNumber(std::string_view text) {
  const bool is_hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (is_hexadecimal) text.remove_prefix(2);
  uint32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, is_hexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

bool ResourceToken::Is(std::string_view word) const {
  return kind == Kind::kWord && NameKey(text) == NameKey(word);
}

ResourceToken ResourceTokens::Next() {
  if (!SkipBlanks()) return Token(Kind::kError, "only #include and #pragma are honoured");
  if (rest_.empty()) return Token(Kind::kEnd, "");
  if (rest_.front() == '"') return Text();
  const size_t length = std::min(rest_.find_first_not_of(kWordCharacters), rest_.size());
  if (length == 0) {
    ResourceToken sign = Token(Kind::kSign, std::string(rest_.substr(0, 1)));
    Skip(1);
    return sign;
  }
  ResourceToken token = Token(Kind::kWord, std::string(rest_.substr(0, length)));
  if (const std::optional<uint32_t> number = ParseResourceNumber(token.text)) {
    token.kind = Kind::kNumber;
    token.number = *number;
  }
  Skip(length);
  return token;
}

bool ResourceTokens::SkipBlanks() {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";  // of UTF-8, at the start of a file
  constexpr std::string_view kBlanks = " \t\r\n\f";
  for (;;) {
    if (rest_.empty()) return true;
    if (rest_.starts_with(kMark)) {
      Skip(kMark.size());
    } else if (kBlanks.find(rest_.front()) != std::string_view::npos) {
      Skip(1);
    } else if (rest_.starts_with("/*")) {
      const size_t end = rest_.find("*/", 2);
      Skip(end == std::string_view::npos ? rest_.size() : end + 2);
    } else if (rest_.starts_with("//") || rest_.starts_with("#include") ||
               rest_.starts_with("#pragma")) {
      Skip(std::min(rest_.find('\n'), rest_.size()));
    } else {
      return rest_.front() != '#';
    }
  }
}

void ResourceTokens::Skip(size_t length) {
  line_ += static_cast<int>(
      std::count(rest_.begin(), rest_.begin() + static_cast<ptrdiff_t>(length), '\n'));
  rest_.remove_prefix(length);
}

ResourceToken ResourceTokens::Text() {
  std::string text;
  size_t i = 1;
  for (; i < rest_.size() && rest_[i] != '\n'; ++i) {
    const char next = i + 1 < rest_.size() ? rest_[i + 1] : '\n';
    if (rest_[i] == '"') {
      if (next != '"') {
        ResourceToken token = Token(Kind::kText, std::move(text));
        Skip(i + 1);
        return token;
      }
      text += '"';
      ++i;
    } else if (rest_[i] == '\\') {
      constexpr std::string_view kEscapes = "nrt\\0";
      constexpr std::string_view kMeanings("\n\r\t\\\0", 5);
      const size_t escape = kEscapes.find(next);
      if (escape == std::string_view::npos) return Token(Kind::kError, "an unknown escape");
      text += kMeanings[escape];
      ++i;
    } else {
      text += rest_[i];
    }
  }
  return Token(Kind::kError, "a text without an end");
}

ResourceToken ResourceTokens::Token(Kind kind, std::string text) const {
  return {kind, std::move(text), 0, line_};
}

}  // namespace simulator
