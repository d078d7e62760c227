// The command lines of a disk tool script.
#ifndef SIMULATOR_TOOLS_DISKPART_SCRIPT_H_
#define SIMULATOR_TOOLS_DISKPART_SCRIPT_H_

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

enum class DiskpartVerb {
  kNothing,  // a blank line or a remark
  kListDisk,
  kSelectDisk,
  kSelectPartition,
  kDetailDisk,
  kAssign,
  kRemove,
  kExit,
  kBadArguments,
  kUnknown,
};

struct DiskpartCommand {
  DiskpartVerb verb = DiskpartVerb::kNothing;
  int number = 0;                   // of the disk or partition to select
  std::optional<char> letter = {};  // to assign, in upper case
  std::string help_topic = {};      // for kBadArguments
};

// Parses one line, without its line feed.
DiskpartCommand ParseDiskpartCommand(std::string_view line);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_SCRIPT_H_
