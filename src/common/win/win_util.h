// WinUtil: the system's own tools, run as hidden child processes.
#ifndef COMMON_WIN_WIN_UTIL_H_
#define COMMON_WIN_WIN_UTIL_H_

#include <windows.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/win/bcd_output.h"
#include "common/win/diskpart_output.h"
#include "common/win/platform_cache.h"
#include "logger/logger.h"

namespace common::win {

// A local object of the stage that uses it, on the restore worker's thread. Every operation logs
// through the logger, which must have been set and is not owned. Codes are 0 for success, else a
// tool's exit code or a system error code.
class WinUtil {
 public:
  // When `base_folder` is not empty, diskpart scripts lie in its folder "bin"; otherwise in the
  // temporary folder. The other two texts are kept and not used.
  WinUtil(std::string base_folder, std::string second, std::string third);

  virtual void SetLogger(logger::Logger* logger);

  // "en-us": the locale for which the boot files are not made anew.
  const std::string& DefaultLocale() const { return default_locale_; }

  // "Windows Server 2003", "... 2008", "... 2012" or "... 2016", by the version that Windows
  // reports to this process; whether it is a server is not looked at. False, with `name` empty,
  // when the version cannot be read.
  // https://learn.microsoft.com/windows/win32/api/sysinfoapi/nf-sysinfoapi-getversionexa
  [[nodiscard]] bool GetOSPlatform(std::string& name);

  // Starts a process, hidden; with a standard handle given, it gets those handles, and the wish for
  // a hidden window is dropped. `application` may be empty: the command line then names the
  // program. A command line is cut behind 2,047 characters. On success the handles of process and
  // thread are the caller's; on failure they are untouched and the thread's last error is
  // CreateProcessA's.
  [[nodiscard]] static bool CreateProgressNoWait(logger::Logger& logger,
                                                 const std::string& application,
                                                 const std::string& command_line, HANDLE output,
                                                 HANDLE error, HANDLE& process, HANDLE& thread);

  // Runs a tool to the end of its output and returns its exit code; `output` is what it wrote to
  // standard output and standard error, in the order it wrote it. A tool that cannot be started, or
  // a pipe that cannot be made, gives the error code, 0xFFFFFFFF in place of 0. When the exit code
  // cannot be read, the result is 0. In these cases `output` is left as it is.
  //
  // The end of the output is taken for the end of the tool: of one that closes it before it ends,
  // the code is STILL_ACTIVE (259). Of each piece read, what follows a zero byte is lost. Both pipe
  // ends stay open when the tool cannot be started. Blocks as long as the tool runs.
  [[nodiscard]] DWORD ExecCommandWithResults(const std::string& application,
                                             const std::string& command_line, std::string& output);

  // Writes `script` to the operation's script file, runs diskpart on it and returns its code, or 1
  // when the file cannot be written.
  [[nodiscard]] DWORD RunScript(const std::string& operation, const std::string& script,
                                std::string& output);

  // Appends every disk that diskpart lists with a size in GB and whose detail can be read. False
  // when the listing fails; a disk whose detail fails is left out.
  [[nodiscard]] bool EnumDiskpartInfos(std::vector<DiskpartInfo>& disks);

  // See ParseDiskDetail. Both are 0 and false on failure.
  [[nodiscard]] bool GetDiskpartVolumeInfo(uint32_t disk, char& letter, bool& has_volume);

  // Gives partition 1, or 2, of a disk the drive letter `letter`, or any free one for 0. `letter`
  // is then the first letter that diskpart shows on the disk, which need not be the partition's.
  // When diskpart refuses, `letter` is unchanged; when the disk cannot be read afterwards, it is 0.
  [[nodiscard]] bool AssignDiskLetter(uint32_t disk, bool second_partition, char& letter);

  // Takes the letter of partition 1, or 2, of a disk away.
  [[nodiscard]] bool RemoveDiskLetter(uint32_t disk, bool second_partition);

  // The boot configuration store, through bcdedit and bcdboot. On Windows Server 2003, which has
  // neither, nothing is run and all of these are true. False, with the reason logged, when the
  // platform cannot be told, the tool fails, or, here, its listing lacks something or is not
  // consistent; `info` comes in empty and is worth nothing then.
  // https://learn.microsoft.com/windows-server/administration/windows-commands/bcdedit
  [[nodiscard]] bool GetBCDBootInfo(BCDBootInfo& info);

  // Writes the whole store to a file.
  [[nodiscard]] bool ExportBCDBoot(const std::string& path);

  // Replaces the whole store by what such a file holds.
  [[nodiscard]] bool ImportBCDBoot(const std::string& path);

  // Deletes one entry. The identifier goes onto the command line as it stands.
  [[nodiscard]] bool DeleteBCDBootOSLoader(const std::string& identifier);

  // Makes the boot files and the store on the system drive anew, in a locale such as "zh-CN".
  // https://learn.microsoft.com/windows-hardware/manufacture/desktop/bcdboot-command-line-options-techref-di
  [[nodiscard]] bool RemakeBCDBoot(const std::string& locale);

 private:
  // Asks for the platform once in a process for each operation; false when it cannot be told.
  [[nodiscard]] bool FindPlatform(BootOperation operation, bool& has_boot_tools);

  // Runs bcdedit where there is one. False, with its code, when it fails; with code 0 when the
  // platform cannot be told.
  [[nodiscard]] bool EditBootStore(BootOperation operation, const std::string& arguments,
                                   DWORD& code);

  // The path of the script file written, empty when it could not be.
  std::string CreateScriptFile(const std::string& operation, const std::string& script);

  const std::array<std::string, 4> platform_names_ = {"Windows Server 2003", "Windows Server 2008",
                                                      "Windows Server 2012", "Windows Server 2016"};
  const std::string default_locale_ = "en-us";
  const std::string base_folder_;
  const std::string second_;
  const std::string third_;
  logger::Logger* logger_ = nullptr;
};

}  // namespace common::win

#endif  // COMMON_WIN_WIN_UTIL_H_
