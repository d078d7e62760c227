// WinUtil runs diskpart, bcdedit and bcdboot as hidden child processes.
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

// Used by one stage on the restore worker's thread. Every operation logs to the logger, which must
// have been set and is not owned. A code is 0 for success, otherwise the exit code of a tool or a
// system error code.
class WinUtil {
 public:
  // If `base_folder` is not empty, diskpart scripts are written to its folder "bin", otherwise to
  // the temporary folder. The other two texts are not used.
  WinUtil(std::string base_folder, std::string second, std::string third);

  virtual void SetLogger(logger::Logger* logger);

  // "en-us": the locale for which the boot files are not rebuilt.
  const std::string& DefaultLocale() const { return default_locale_; }

  // Sets `name` to "Windows Server 2003", "... 2008", "... 2012" or "... 2016" according to the
  // version that Windows reports to this process; client systems get the same names. If the version
  // cannot be read, logs the failure, empties `name` and returns false.
  // https://learn.microsoft.com/windows/win32/api/sysinfoapi/nf-sysinfoapi-getversionexa
  [[nodiscard]] bool GetOSPlatform(std::string& name);

  // Starts a process without a console window. If `output` or `error` is not null, the process gets
  // these standard handles, and the request to hide its window is omitted. If `application` is
  // empty, the command line names the program. The command line is truncated after 2,047
  // characters. On success the caller owns the handles of the process and its thread. On failure
  // both are unchanged, the failure is logged, and the last error is that of CreateProcessA.
  [[nodiscard]] static bool CreateProgressNoWait(logger::Logger& logger,
                                                 const std::string& application,
                                                 const std::string& command_line, HANDLE output,
                                                 HANDLE error, HANDLE& process, HANDLE& thread);

  // Runs a tool until the end of its output and returns its exit code. `output` receives the text
  // that the tool writes to standard output and standard error, in its order. If the tool cannot be
  // started or the pipe cannot be created, returns the error code, or 0xFFFFFFFF if that is 0. If
  // the exit code cannot be read, returns 0. In these cases `output` is unchanged and the failure
  // is logged.
  //
  // Does not wait for the process: if a tool closes its output before it exits, returns
  // STILL_ACTIVE (259). In each piece of output, text after a zero byte is discarded. Blocks until
  // the end of the output, without a time limit.
  [[nodiscard]] DWORD ExecCommandWithResults(const std::string& application,
                                             const std::string& command_line, std::string& output);

  // Writes `script` to the operation's script file, runs diskpart with it and returns its code.
  // Returns 1 if the file cannot be written.
  [[nodiscard]] DWORD RunScript(const std::string& operation, const std::string& script,
                                std::string& output);

  // Appends every disk that diskpart lists with a size in GB. Omits a disk whose details cannot be
  // read. Returns false if the disks cannot be listed.
  [[nodiscard]] bool EnumDiskpartInfos(std::vector<DiskpartInfo>& disks);

  // See ParseDiskDetail. On failure sets `letter` to 0 and `has_volume` to false.
  [[nodiscard]] bool GetDiskpartVolumeInfo(uint32_t disk, char& letter, bool& has_volume);

  // Assigns the drive letter `letter`, or any free one if it is 0, to partition 1 or 2 of a disk.
  // Sets `letter` to the first drive letter that diskpart then lists on the disk, which is not
  // always that of the partition. Returns false with `letter` unchanged if diskpart fails, and
  // false with `letter` set to 0 if the disk cannot be read afterwards.
  [[nodiscard]] bool AssignDiskLetter(uint32_t disk, bool second_partition, char& letter);

  // Removes the drive letter of partition 1 or 2 of a disk.
  [[nodiscard]] bool RemoveDiskLetter(uint32_t disk, bool second_partition);

  // The following operations access the BCD store with bcdedit and bcdboot. On Windows Server 2003,
  // which has neither, they do nothing and return true. They log the reason and return false if the
  // platform is unknown or the tool fails.

  // Reads the store into `info`, which must be empty. Also returns false if the listing is
  // incomplete or inconsistent; `info` is then not valid.
  // https://learn.microsoft.com/windows-server/administration/windows-commands/bcdedit
  [[nodiscard]] bool GetBCDBootInfo(BCDBootInfo& info);

  // Exports the whole store to a file.
  [[nodiscard]] bool ExportBCDBoot(const std::string& path);

  // Replaces the whole store with an exported file.
  [[nodiscard]] bool ImportBCDBoot(const std::string& path);

  // Deletes one boot entry. The identifier is passed on the command line without quotation marks.
  [[nodiscard]] bool DeleteBCDBootOSLoader(const std::string& identifier);

  // Rebuilds the boot files and the store on the system drive with a locale such as "zh-CN".
  // https://learn.microsoft.com/windows-hardware/manufacture/desktop/bcdboot-command-line-options-techref-di
  [[nodiscard]] bool RemakeBCDBoot(const std::string& locale);

 private:
  enum class BootTools { kUnknown, kNone, kPresent };

  // Returns whether the platform has bcdedit and bcdboot. Queries the platform once per process for
  // each operation.
  BootTools FindBootTools(BootOperation operation);

  // Runs bcdedit or bcdboot. If that fails, logs `failure`, a format string for `object` and the
  // code, and returns false.
  [[nodiscard]] bool RunBootTool(const std::string& command_line, const char* failure,
                                 const std::string& object);

  // Runs bcdedit, if the platform has it, as RunBootTool does. Returns false if the platform is
  // unknown.
  [[nodiscard]] bool EditBootStore(BootOperation operation, const std::string& arguments,
                                   const char* failure, const std::string& object);

  // Returns the path of the script file; empty if it cannot be written.
  std::string CreateScriptFile(const std::string& operation, const std::string& script);

  const std::array<std::string, 4> platform_names_ = {"Windows Server 2003", "Windows Server 2008",
                                                      "Windows Server 2012", "Windows Server 2016"};
  const std::string default_locale_ = "en-us";
  const std::string base_folder_;
  // Oddity: unused values, see docs/oddities.md.
  const std::string second_;
  const std::string third_;
  logger::Logger* logger_ = nullptr;
};

}  // namespace common::win

#endif  // COMMON_WIN_WIN_UTIL_H_
