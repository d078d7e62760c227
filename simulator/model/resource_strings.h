// The string tables of a resource script.
#ifndef SIMULATOR_MODEL_RESOURCE_STRINGS_H_
#define SIMULATOR_MODEL_RESOURCE_STRINGS_H_

#include <windows.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace simulator {

struct ResourceStrings {
  std::map<std::pair<LANGID, UINT>, std::string> strings;  // UTF-8
  std::string error;                                       // empty, or "line 12: what is wrong"
};

// Reads the STRINGTABLE blocks of `script` and passes over every other resource. An id is a number
// or a name with a line "#define NAME number" in `names`. LANGUAGE lines count from where they
// stand on; without one the language is 1033. Within texts "" is a quotation mark and \n, \r, \t
// and \\ are what they are in C; other escapes, expressions and conditional lines are errors.
ResourceStrings ReadResourceStrings(std::string_view script, std::string_view names);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_RESOURCE_STRINGS_H_
