// The resources of a program, as the resource compiler writes them.
// https://learn.microsoft.com/windows/win32/menurc/resource-file-formats
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCES_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCES_H_

#include <windows.h>

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "simulator/model/desktop/dialog_template.h"

namespace simulator {

// By language and number.
using ResourceKey = std::pair<LANGID, UINT>;
template <typename Resource>
using ResourceMap = std::map<ResourceKey, Resource>;

struct Resources {
  ResourceMap<std::string> strings;  // UTF-8; an empty string is no resource
  ResourceMap<DialogTemplate> dialogs;
  std::set<ResourceKey> icons;
};

// Reads the strings, dialogs and icon groups of a compiled resource file (.res) and skips all other
// types. Aborts if the bytes are malformed, and for names that are not numbers, dialogs other than
// DIALOGEX, and dialogs or controls with a menu, a class, a help id or creation data of their own.
Resources ReadResources(std::string_view bytes);

// Those of the program.
const Resources& ProgramResources();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCES_H_
