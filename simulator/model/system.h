// Facts about the simulated machine. Set before the program runs, only read afterwards.
#ifndef SIMULATOR_MODEL_SYSTEM_H_
#define SIMULATOR_MODEL_SYSTEM_H_

#include <windows.h>

#include <map>
#include <string>

namespace simulator {

struct System {
  DWORD major_version = 10;
  DWORD minor_version = 0;
  DWORD build = 14393;
  std::string service_pack;
  WORD architecture = PROCESSOR_ARCHITECTURE_AMD64;
  bool has_native_system_info = true;  // kernel32 exports GetNativeSystemInfo
  LANGID language = 1033;              // the system default

  // Texts of error codes in place of the usual ones, without a line end.
  std::map<DWORD, std::string> messages;

  std::string computer_name = "MIGRATED";
  std::string program_path = "C:\\vantoro_restore\\vantoro_restore.exe";
  std::string system_directory = "C:\\Windows\\system32";
  // Without a final backslash; empty when the user has none.
  std::string temp_directory = "C:\\Users\\Administrator\\AppData\\Local\\Temp";
  std::string common_startup_directory =
      "C:\\ProgramData\\Microsoft\\Windows\\Start Menu\\Programs\\StartUp";
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SYSTEM_H_
