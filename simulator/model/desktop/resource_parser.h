// What the readers of a resource script's statements have in common.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_PARSER_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_PARSER_H_

#include <windows.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/desktop/resource_tokens.h"

namespace simulator {

// Stands at a token of the script. The first thing that is wrong ends the script: from then on it
// stands at the end, and what is read is 0 or empty.
class ResourceParser {
 public:
  // `names` is the header that gives the script's names their numbers.
  ResourceParser(std::string_view script, std::string_view names);

  const ResourceToken& Token() const { return token_; }
  bool AtEnd() const { return token_.kind == ResourceToken::Kind::kEnd; }
  void Advance();
  void Fail(const std::string& what);
  const std::string& Error() const { return error_; }  // empty, or "line 12: what is wrong"

  // A number or a name that has one.
  bool IsAtNumber() const { return NumberHere().has_value(); }
  uint32_t ReadNumber();
  int ReadSmallNumber();  // the same of 16 bits, with or without a minus
  std::string ReadText();
  void ReadComma();

  // `|` and NOT, which takes away, applied to a style from the left to the right.
  DWORD ReadStyle(DWORD style);
  LANGID ReadLanguage();  // the keyword and both of its numbers

  void PassOverBlock();  // from BEGIN to behind its END
  void PassOverWords();  // memory flags

 private:
  std::optional<uint32_t> NumberHere() const;

  const std::map<std::string, uint32_t> names_;
  ResourceTokens tokens_;
  ResourceToken token_;
  std::string error_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_PARSER_H_
