#include "simulator/model/desktop/resources.h"

#include <cstdint>
#include <utility>

#include "simulator/model/desktop/resource_dialogs.h"
#include "simulator/model/desktop/resource_parser.h"

namespace simulator {
namespace {

class Reader {
 public:
  Reader(std::string_view script, std::string_view names) : parser_(script, names) {}

  Resources Read() {
    while (!parser_.AtEnd()) ReadStatement();
    result_.error = parser_.Error();
    return std::move(result_);
  }

 private:
  // A number that no resource behind it claims is passed over with the rest.
  void ReadStatement() {
    if (parser_.Token().Is("LANGUAGE")) {
      language_ = parser_.ReadLanguage();
    } else if (parser_.Token().Is("STRINGTABLE")) {
      ReadTable();
    } else if (parser_.Token().IsBegin()) {
      parser_.PassOverBlock();
    } else if (parser_.IsAtNumber()) {
      ReadNumbered(parser_.ReadNumber());
    } else {
      parser_.Advance();
    }
  }

  void ReadNumbered(UINT id) {
    if (parser_.Token().Is("DIALOG") || parser_.Token().Is("DIALOGEX")) {
      LANGID language = language_;
      DialogTemplate dialog = ReadDialog(parser_, &language);
      Keep(&result_.dialogs, {language, id}, std::move(dialog), "dialog");
    } else if (parser_.Token().Is("ICON")) {
      parser_.Advance();
      parser_.PassOverWords();
      Keep(&result_.icons, {language_, id}, parser_.ReadText(), "icon");
    }
  }

  void ReadTable() {
    LANGID language = language_;
    parser_.Advance();
    while (!parser_.AtEnd() && !parser_.Token().IsBegin()) {
      if (parser_.Token().Is("LANGUAGE")) {
        language = parser_.ReadLanguage();
      } else {
        parser_.Advance();  // memory flags and version lines
      }
    }
    parser_.Advance();
    while (!parser_.AtEnd() && !parser_.Token().IsEnd()) ReadString(language);
    if (parser_.AtEnd()) return parser_.Fail("a string table without an end");
    parser_.Advance();
  }

  void ReadString(LANGID language) {
    const UINT id = parser_.ReadNumber();
    if (parser_.Token().IsSign(',')) parser_.Advance();
    Keep(&result_.strings, {language, id}, parser_.ReadText(), "text");
  }

  template <typename Resource>
  void Keep(ResourceMap<Resource>* map, std::pair<LANGID, UINT> key, Resource resource,
            const char* kind) {
    if (!parser_.Error().empty()) return;
    if (!map->emplace(key, std::move(resource)).second) {
      parser_.Fail(std::string("a second ") + kind + " of the same id");
    }
  }

  ResourceParser parser_;
  LANGID language_ = MAKELANGID(0x09, 0x01);
  Resources result_;
};

}  // namespace

Resources ReadResources(std::string_view script, std::string_view names) {
  return Reader(script, names).Read();
}

}  // namespace simulator
