// The resources of a resource script.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCES_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCES_H_

#include <windows.h>

#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/model/desktop/dialog_template.h"

namespace simulator {

// By language and number.
template <typename Resource>
using ResourceMap = std::map<std::pair<LANGID, UINT>, Resource>;

struct Resources {
  ResourceMap<std::string> strings;  // UTF-8
  ResourceMap<DialogTemplate> dialogs;
  ResourceMap<std::string> icons;  // their files, as the script names them
  std::string error;               // empty, or "line 12: what is wrong"
};

// Reads what stands above in `script` and passes over every other resource. A number may be a name
// with a line "#define NAME number" in `names`, or one of the SDK's. LANGUAGE lines count from
// where they stand on; without one the language is 1033. Within texts "" is a quotation mark and
// \n, \r, \t, \\ and \0 are what they are in C; other escapes and conditional lines are errors.
Resources ReadResources(std::string_view script, std::string_view names);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCES_H_
