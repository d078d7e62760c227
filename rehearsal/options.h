// The command line of a rehearsal.
#ifndef REHEARSAL_OPTIONS_H_
#define REHEARSAL_OPTIONS_H_

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "rehearsal/user.h"

namespace simulator {

struct Options {
  std::string scenario = "default";
  std::filesystem::path logs = "out/Logs";
  std::filesystem::path json;      // where the report for machines is written; empty for nowhere
  std::optional<LANGID> language;  // instead of the scenario's
  Intention intention;
  bool windows = false;  // the Windows build of the program, under Wine
  bool strict = false;   // something wrong in the report decides on the exit status
  bool list = false;
  bool help = false;
};

extern const std::string_view kHelp;

// Parses the arguments, which do not include the program's name. Returns an empty string on
// success; otherwise returns the error message.
std::string ParseArguments(const std::vector<std::string>& arguments, Options& options);

}  // namespace simulator

#endif  // REHEARSAL_OPTIONS_H_
