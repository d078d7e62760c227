#include "support/test_names.h"

#include <array>
#include <cctype>
#include <cstddef>

namespace tests {
namespace {

struct Symbol {
  char character;
  const char* name;
};

constexpr auto kSymbols = std::to_array<Symbol>({
    {'\0', "Zero"},       {'!', "Not"},     {'"', "Quote"},      {'#', "Hash"},
    {'$', "Dollar"},      {'%', "Percent"}, {'&', "And"},        {'(', "Open"},
    {')', "Close"},       {'*', "Star"},    {'+', "Plus"},       {',', "Comma"},
    {'-', "Minus"},       {'.', "Dot"},     {'/', "Slash"},      {':', "Colon"},
    {';', "Semicolon"},   {'<', "Less"},    {'=', "Equals"},     {'>', "Greater"},
    {'?', "Question"},    {'@', "At"},      {'[', "OpenSquare"}, {'\\', "Backslash"},
    {']', "CloseSquare"}, {'^', "Caret"},   {'_', "_"},          {'`', "Grave"},
    {'{', "OpenBrace"},   {'|', "Or"},      {'}', "CloseBrace"}, {'~', "Tilde"},
});

bool IsAlphanumeric(char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; }
bool IsSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

std::string NameOf(char c) {
  for (const Symbol& symbol : kSymbols) {
    if (symbol.character == c) return symbol.name;
  }
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  return {'X', kDigits[byte >> 4], kDigits[byte & 0xF]};
}

}  // namespace

std::string WordsOf(std::string_view text) {
  std::string name;
  bool begins_word = true;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (IsAlphanumeric(c)) {
      name += begins_word ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
      begins_word = false;
      continue;
    }
    const bool is_within =
        i > 0 && i + 1 < text.size() && IsAlphanumeric(text[i - 1]) && IsAlphanumeric(text[i + 1]);
    if (is_within && (c == '.' || c == '-' || c == '_')) {
      name += '_';
      continue;
    }
    if (c == '\'') continue;                                                // "the system's"
    if (c == ',' && i + 1 < text.size() && IsSpace(text[i + 1])) continue;  // between words
    if (!IsSpace(c)) name += NameOf(c);
    begins_word = true;
  }
  return name.empty() ? "Empty" : name;
}

}  // namespace tests
