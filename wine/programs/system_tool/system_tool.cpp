// diskpart, bcdedit or bcdboot as a program of Windows, by the name that its file has. What it
// knows of the machine it reads from the prefix's state, and writes back there what it changed.
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <string>
#include <vector>

#include "simulator/model/common/command_line.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"
#include "simulator/tools/tools.h"
#include "wine/machine_state.h"
#include "wine/programs/system_tool/prefix_machine.h"

namespace simulator {
namespace {

std::string ToolName() {
  char path[MAX_PATH] = {};
  ::GetModuleFileNameA(nullptr, path, sizeof path);
  return ProgramName(path);
}

std::string StatePath() {
  char folder[MAX_PATH] = {};
  ::GetWindowsDirectoryA(folder, sizeof folder);
  return std::string(folder) + "\\" + kMachineStateFile;
}

void Save(const MachineState& state, PrefixMachine& machine) {
  if (machine.WriteTo(StatePath(), MachineStateText(state)) != ERROR_SUCCESS) {
    Unsupported("the machine's state cannot be written");
  }
}

// As the system's tools do, in the OEM code page.
std::string InOemCodePage(const std::string& utf8) {
  const std::u16string units = Utf16FromUtf8(utf8);
  const std::wstring wide(units.begin(), units.end());
  const int length = static_cast<int>(wide.size());
  std::string text(2 * wide.size(), '\0');
  text.resize(
      static_cast<size_t>(::WideCharToMultiByte(CP_OEMCP, 0, wide.data(), length, text.data(),
                                                static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

void Write(const std::string& utf8, std::FILE* stream) {
  const std::string text = InOemCodePage(utf8);
  std::fwrite(text.data(), 1, text.size(), stream);
  std::fflush(stream);
}

// Does not return. Nothing that it is needed for takes as long as it waits: if nobody terminates
// it, it is still there when the program has ended, and ends with the prefix.
[[noreturn]] void WaitToBeTerminated() {
  constexpr DWORD kLongest = 60 * 60 * 1000;  // milliseconds, if the prefix is never ended
  ::CreateEventA(nullptr, TRUE, FALSE, kToolIsHeldEvent);
  ::Sleep(kLongest);
  ::ExitProcess(WAIT_TIMEOUT);
}

ToolResult Run(const std::string& tool, const std::vector<std::string>& arguments,
               Machine& machine) {
  if (tool == "diskpart") return RunDiskpart(arguments, machine);
  if (tool == "bcdedit") return RunBcdedit(arguments, machine);
  if (tool == "bcdboot") return RunBcdboot(arguments, machine);
  Unsupported("a tool of the name " + tool);
}

// What the call was to do; empty if that is not a readable script.
std::string ScriptOf(const std::vector<std::string>& arguments, const PrefixMachine& machine) {
  std::string script;
  if (arguments.size() == 2 && arguments[0] == "/s") machine.ReadFrom(arguments[1], &script);
  std::erase(script, '\r');
  return script;
}

DWORD Main() {
  const std::wstring command_line = ::GetCommandLineW();
  std::vector<std::string> arguments =
      SplitCommandLine(Utf8FromUtf16(std::u16string(command_line.begin(), command_line.end())));
  arguments.erase(arguments.begin());
  MachineState state;
  PrefixMachine machine(state);
  std::string text;
  machine.ReadFrom(StatePath(), &text);
  std::optional<MachineState> read = ParseMachineState(text);
  if (!read) Unsupported("the machine's state cannot be read");
  state = *std::move(read);

  const std::string tool = ToolName();
  const int call = ++state.calls[tool];
  Save(state, machine);
  for (const ToolAnswer& answer : state.answers) {
    if (answer.name != tool || answer.call != call) continue;
    Write(answer.output, stdout);
    if (answer.is_held) WaitToBeTerminated();
    state.history.push_back({tool, ScriptOf(arguments, machine), answer.exit_code});
    Save(state, machine);
    return answer.exit_code;
  }
  const ToolResult result = Run(tool, arguments, machine);
  state.history.push_back({tool, ScriptOf(arguments, machine), result.exit_code});
  Save(state, machine);
  Write(result.output, stdout);
  Write(result.error_output, stderr);
  return result.exit_code;
}

}  // namespace
}  // namespace simulator

int main() {
  // The texts bring their line ends along.
  ::_setmode(::_fileno(stdout), _O_BINARY);
  ::_setmode(::_fileno(stderr), _O_BINARY);
  return static_cast<int>(simulator::Main());
}
