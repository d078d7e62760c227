// Diskpart scripts, disk inventory and drive letters.
#include "common/files.h"
#include "common/locations.h"
#include "common/paths.h"
#include "common/strings.h"
#include "common/win/win_util.h"

namespace common::win {
namespace {

// Every operation is one script, which has one step.
constexpr int kStep = 1;

std::string SelectDisk(uint32_t disk) { return "sel disk " + ToDecimal(disk) + "\r\n"; }

std::string SelectPartition(uint32_t disk, bool second_partition) {
  return SelectDisk(disk) + "sel part " + ToDecimal(second_partition ? 2 : 1) + "\r\n";
}

}  // namespace

std::string WinUtil::CreateScriptFile(const std::string& operation, const std::string& script) {
  const std::string folder = base_folder_.empty() ? GetTempDir() : JoinDir(base_folder_, "bin");
  std::string path = JoinPath(folder, operation + ".script." + ToDecimal(kStep));
  // Oddity: script files, see docs/oddities.md.
  if (CreateAndWriteFile(path, script)) return path;
  // Oddity: wording of messages, see docs/oddities.md.
  logger_->ErrorOut("WinUtil::RunScript Create %s  Step%d Failed.", operation.c_str(), kStep);
  return {};
}

DWORD WinUtil::RunScript(const std::string& operation, const std::string& script,
                         std::string& output) {
  const std::string path = CreateScriptFile(operation, script);
  if (path.empty()) return 1;
  // Oddity: script files, see docs/oddities.md.
  const DWORD code = ExecCommandWithResults("", "diskpart /s " + path, output);
  if (code != 0) {
    // Oddity: wording of messages, see docs/oddities.md.
    logger_->ErrorOut("WinUtil::RunScript Run %s  Step%d Failed, code=%d", operation.c_str(), kStep,
                      static_cast<int>(code));
  }
  return code;
}

bool WinUtil::EnumDiskpartInfos(std::vector<DiskpartInfo>& disks) {
  std::string output;
  const DWORD code = RunScript("EnumDiskpartInfos", "list disk ", output);
  if (code != 0) {
    logger_->Error("WinUtil::EnumDiskpartInfos getdiskinfo Failed. code=%d",
                   static_cast<int>(code));
    return false;
  }
  for (DiskpartInfo disk : ParseDiskList(output)) {
    const auto number = static_cast<uint32_t>(disk.DiskNumber);
    if (GetDiskpartVolumeInfo(number, disk.Letter, disk.HasVolume)) disks.push_back(disk);
  }
  return true;
}

bool WinUtil::GetDiskpartVolumeInfo(uint32_t disk, char& letter, bool& has_volume) {
  letter = 0;
  has_volume = false;
  std::string output;
  const DWORD code = RunScript("GetDiskpartVolumeInfo", SelectDisk(disk) + "detail disk", output);
  if (code != 0) {
    logger_->Error("WinUtil::GetDiskpartVolumeInfo getdiskinfo Failed. code=%d",
                   static_cast<int>(code));
    return false;
  }
  ParseDiskDetail(output, letter, has_volume);
  return true;
}

bool WinUtil::AssignDiskLetter(uint32_t disk, bool second_partition, char& letter) {
  std::string script = SelectPartition(disk, second_partition) + "assign";
  if (letter != 0) script += std::string(" letter=") + letter;
  script += "\r\n";

  std::string output;
  const DWORD code = RunScript("AssignDiskLetter", script, output);
  if (code != 0) {
    logger_->Error("WinUtil::AssignDiskLetter assign letter Failed. code=%d",
                   static_cast<int>(code));
    return false;
  }
  bool has_volume = false;
  // Oddity: first letter of a disk, see docs/oddities.md.
  return GetDiskpartVolumeInfo(disk, letter, has_volume);
}

bool WinUtil::RemoveDiskLetter(uint32_t disk, bool second_partition) {
  std::string output;
  const DWORD code =
      RunScript("RemoveDiskLetter", SelectPartition(disk, second_partition) + "remove\r\n", output);
  if (code != 0) {
    logger_->Error("WinUtil::RemoveDiskLetter remove letter Failed. code=%d",
                   static_cast<int>(code));
    return false;
  }
  return true;
}

}  // namespace common::win
