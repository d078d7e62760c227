#include "simulator/server_tools.h"

#include <memory>
#include <optional>
#include <utility>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/open_file.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"
#include "simulator/tools/machine.h"
#include "simulator/tools/tools.h"

namespace simulator {
namespace {

class ServerMachine : public Machine {
 public:
  explicit ServerMachine(Server& server) : server_(server) {}

  const System& system() const override { return server_.system(); }
  const std::vector<Disk>& disks() const override { return server_.disks(); }
  Boot& boot() override { return server_.boot(); }

  std::optional<char> LetterOf(const Volume& volume) const override {
    return server_.files().LetterOf(volume);
  }
  std::shared_ptr<Volume> VolumeAt(char letter) const override {
    return server_.files().VolumeAt(letter);
  }
  std::optional<char> FreeLetter() const override { return server_.file_system().FreeLetter(); }
  void Mount(char letter, const std::shared_ptr<Volume>& volume) override {
    server_.files().Mount(letter, volume);
  }
  void Unmount(char letter) override { server_.files().Unmount(letter); }

  DWORD ReadFrom(const std::string& path, std::string* bytes) const override {
    std::shared_ptr<OpenFile> file;
    DWORD error = server_.file_system().Open(path, {.read = true}, &file);
    char buffer[4096];
    size_t read = sizeof buffer;
    while (error == ERROR_SUCCESS && read > 0) {
      error = file->Read(buffer, sizeof buffer, &read);
      bytes->append(buffer, read);
    }
    return error;
  }

  DWORD WriteTo(const std::string& path, std::string_view bytes) override {
    const OpenMode mode{.write = true, .creation = Creation::kCreateAlways};
    std::shared_ptr<OpenFile> file;
    const DWORD error = server_.file_system().Open(path, mode, &file);
    size_t written = 0;
    return error == ERROR_SUCCESS ? file->Write(bytes, &written) : error;
  }

  bool IsFolder(const std::string& path) const override {
    DWORD attributes = 0;
    return server_.file_system().Attributes(path, &attributes) == ERROR_SUCCESS &&
           (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  }

  std::string FullPath(const std::string& path) const override {
    return server_.file_system().FullPath(path);
  }

 private:
  Server& server_;
};

DWORD Finish(const ToolResult& result, UINT code_page, ChildProcess& child) {
  // An empty write would be read as one.
  if (!result.output.empty()) child.WriteOutput(AnsiFromUtf8(result.output, code_page));
  if (!result.error_output.empty()) child.WriteError(AnsiFromUtf8(result.error_output, code_page));
  return result.exit_code;
}

using Tool = ToolResult (*)(const std::vector<std::string>& arguments, Machine& machine);

Program ProgramOf(Tool tool) {
  return [tool](Server& server, ChildProcess& child) {
    std::vector<std::string> arguments = child.Arguments();
    arguments.erase(arguments.begin());
    ServerMachine machine(server);
    return Finish(tool(arguments, machine), server.system().oem_code_page, child);
  };
}

}  // namespace

Program DiskpartProgram() { return ProgramOf(static_cast<Tool>(&RunDiskpart)); }
Program BcdeditProgram() { return ProgramOf(static_cast<Tool>(&RunBcdedit)); }
Program BcdbootProgram() { return ProgramOf(static_cast<Tool>(&RunBcdboot)); }

ToolResult RunDiskpartScript(std::string_view script, Server& server) {
  ServerMachine machine(server);
  return RunDiskpartScript(script, machine);
}

ToolResult RunBcdedit(const std::vector<std::string>& arguments, Server& server) {
  ServerMachine machine(server);
  return RunBcdedit(arguments, machine);
}

ToolResult RunBcdboot(const std::vector<std::string>& arguments, Server& server) {
  ServerMachine machine(server);
  return RunBcdboot(arguments, machine);
}

}  // namespace simulator
