// What a run comes down to: the tools, and then the calls for the descriptors.
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>

#include "acl/acl_backup.h"
#include "benchmarks/bare_restore.h"
#include "wine/measures/programs/measure/measure.h"

namespace benchmarks {
namespace {

std::vector<std::string> LinesOf(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot read " + path);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

void RunTool(std::string command_line) {
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  STARTUPINFOA startup{};
  PROCESS_INFORMATION process{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  if (!::CreatePipe(&read_end, &write_end, &inheritable, 0)) throw std::runtime_error("no pipe");
  startup.hStdOutput = write_end;
  startup.hStdError = write_end;
  if (!::CreateProcessA(nullptr, command_line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW,
                        nullptr, nullptr, &startup, &process)) {
    throw std::runtime_error("cannot start " + command_line);
  }
  ::CloseHandle(write_end);
  std::array<char, 1024> buffer{};
  DWORD count = 0;
  while (::ReadFile(read_end, buffer.data(), buffer.size(), &count, nullptr)) continue;
  DWORD code = 0;
  ::GetExitCodeProcess(process.hProcess, &code);
  ::CloseHandle(read_end);
  ::CloseHandle(process.hThread);
  ::CloseHandle(process.hProcess);
  if (code != 0) throw std::runtime_error(command_line + " has failed");
}

}  // namespace

int MeasureTools(const Arguments& arguments) {
  const std::vector<std::string> command_lines = LinesOf(arguments.at(0));
  const int64_t begin = Microseconds();
  for (const std::string& command_line : command_lines) RunTool(command_line);
  Tell("tools", Microseconds() - begin);

  std::vector<acl::AclBackupRecord> records;
  for (size_t i = 1; i < arguments.size(); ++i) {
    for (const std::string& line : LinesOf(arguments[i]))
      records.push_back(acl::ParseAclLine(line));
  }
  const int64_t middle = Microseconds();
  for (acl::AclBackupRecord& record : records) {
    RestoreBare(record.Path, static_cast<DWORD>(record.Attributes), record.Sddl);
  }
  Tell("descriptors", Microseconds() - middle);
  return 0;
}

}  // namespace benchmarks
