#include "simulator/model/resource_strings.h"

#include <cstdint>
#include <optional>
#include <sstream>

#include "simulator/model/resource_tokens.h"

namespace simulator {
namespace {

using Kind = ResourceToken::Kind;

std::map<std::string, uint32_t> ReadNames(std::string_view header) {
  std::map<std::string, uint32_t> names;
  std::istringstream lines{std::string(header)};
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string directive;
    std::string name;
    std::string value;
    words >> directive >> name >> value;
    const std::optional<uint32_t> number = ParseResourceNumber(value);
    if (directive == "#define" && number) names[name] = *number;
  }
  return names;
}

class Reader {
 public:
  Reader(std::string_view script, std::string_view names)
      : names_(ReadNames(names)), tokens_(script) {}

  ResourceStrings Read() {
    Advance();
    while (!AtEnd()) {
      if (token_.Is("LANGUAGE")) {
        language_ = ReadLanguage();
      } else if (token_.Is("STRINGTABLE")) {
        ReadTable();
      } else if (token_.IsBegin()) {
        PassOverBlock();
      } else {
        Advance();
      }
    }
    return std::move(result_);
  }

 private:
  bool AtEnd() const { return token_.kind == Kind::kEnd; }

  void Advance() {
    token_ = tokens_.Next();
    if (token_.kind == Kind::kError) Fail(token_.text);
  }

  void Fail(const std::string& what) {
    if (result_.error.empty()) {
      result_.error = "line " + std::to_string(token_.line) + ": " + what;
    }
    token_ = {};  // ends the reading
    tokens_ = ResourceTokens("");
  }

  void PassOverBlock() {
    int depth = 0;
    do {
      if (token_.IsBegin()) ++depth;
      if (token_.IsEnd()) --depth;
      Advance();
    } while (depth > 0 && !AtEnd());
    if (depth > 0) Fail("a block without an end");
  }

  // A number or a name that has one.
  uint32_t ReadNumber() {
    uint32_t number = token_.number;
    if (token_.kind != Kind::kNumber) {
      const auto found = names_.find(token_.text);
      if (token_.kind != Kind::kWord || found == names_.end()) {
        Fail("expected a number or a known name");
        return 0;
      }
      number = found->second;
    }
    Advance();
    return number;
  }

  LANGID ReadLanguage() {
    Advance();
    const uint32_t primary = ReadNumber();
    if (!token_.IsSign(',')) {
      Fail("expected a comma");
      return 0;
    }
    Advance();
    return static_cast<LANGID>(MAKELANGID(primary, ReadNumber()));
  }

  void ReadTable() {
    LANGID language = language_;
    Advance();
    while (!AtEnd() && !token_.IsBegin()) {
      if (token_.Is("LANGUAGE")) {
        language = ReadLanguage();
      } else {
        Advance();  // memory flags and version lines
      }
    }
    Advance();
    while (!AtEnd() && !token_.IsEnd()) ReadString(language);
    if (AtEnd()) return Fail("a string table without an end");
    Advance();
  }

  void ReadString(LANGID language) {
    const uint32_t id = ReadNumber();
    if (token_.IsSign(',')) Advance();
    if (token_.kind != Kind::kText) return Fail("expected a text");
    if (!result_.strings.emplace(std::pair(language, id), token_.text).second) {
      return Fail("a second text of the same id");
    }
    Advance();
  }

  const std::map<std::string, uint32_t> names_;
  ResourceTokens tokens_;
  ResourceToken token_;
  LANGID language_ = MAKELANGID(0x09, 0x01);
  ResourceStrings result_;
};

}  // namespace

ResourceStrings ReadResourceStrings(std::string_view script, std::string_view names) {
  return Reader(script, names).Read();
}

}  // namespace simulator
