#include <atomic>
#include <fstream>
#include <iterator>
#include <memory>
#include <utility>

#include "simulator/model/server.h"
#include "simulator/scenario.h"
#include "simulator/tools/diskpart.h"

namespace simulator {
namespace {

// Copies the files of a host folder to the root of a volume. Folders come with the files in them;
// an empty one is left out.
void Import(const std::filesystem::path& folder, const Volume& volume, Files& files) {
  try {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
      if (entry.symlink_status().type() == std::filesystem::file_type::directory) continue;
      std::ifstream stream;
      if (entry.symlink_status().type() == std::filesystem::file_type::regular) {
        stream.open(entry.path(), std::ios::binary);
      }
      if (!stream.is_open()) {
        throw ScenarioError(entry.path().string() + ": expected a file that can be read");
      }
      std::string path = entry.path().lexically_relative(folder).generic_string();
      for (char& c : path) {
        if (c == '/') c = '\\';
      }
      files.WriteOn(volume, path, {std::istreambuf_iterator<char>(stream), {}});
    }
  } catch (const std::filesystem::filesystem_error& error) {
    throw ScenarioError(folder.string() +
                        ": expected a folder that can be read: " + error.code().message());
  }
}

std::shared_ptr<Volume> BuildVolume(const ScenarioVolume& description, uint64_t size,
                                    Files& files) {
  // The bare server's own volume, with Windows and the program on it.
  const bool is_system = description.letter == 'C';
  std::shared_ptr<Volume> volume = is_system ? files.VolumeAt('C') : files.AddVolume({});
  volume->label = description.label;
  volume->file_system = description.file_system;
  volume->drive_type = description.drive_type;
  volume->size = size;
  volume->free = size;
  if (description.letter && !is_system) files.Mount(*description.letter, volume);
  if (!description.import.empty()) Import(description.import, *volume, files);
  if (description.backup_info) {
    std::string text;
    for (const std::string& line : *description.backup_info) text += line + "\r\n";
    files.WriteOn(*volume, "vantoro_prepare\\backup_info", text);
  }
  return volume;
}

void BuildDisks(const Scenario& scenario, Server& server) {
  int number = 0;
  for (const ScenarioDisk& description : scenario.disks) {
    Disk disk;
    disk.number = number++;
    disk.model = description.model;
    disk.size = description.size;
    disk.free = description.free;
    disk.online = description.online;
    disk.gpt = description.gpt;
    if (disk.gpt) disk.id = "{00000000-0000-0000-0000-000000000000}";
    for (const ScenarioPartition& part : description.partitions) {
      disk.partitions.push_back(
          {part.number, part.size, part.info,
           part.volume ? BuildVolume(*part.volume, part.size, server.files()) : nullptr});
    }
    server.disks().push_back(std::move(disk));
  }
}

// The tool, but for the calls that are to misbehave.
Program Misbehaving(Program real, std::vector<ScenarioTool> calls) {
  const auto count = std::make_shared<std::atomic<int>>(0);
  return [count, real = std::move(real), calls = std::move(calls)](Server& server,
                                                                   ChildProcess& child) -> DWORD {
    const int call = ++*count;
    for (const ScenarioTool& tool : calls) {
      if (tool.call != call) continue;
      child.WriteOutput(tool.output);
      return tool.exit_code;
    }
    return real(server, child);
  };
}

}  // namespace

void Build(const Scenario& scenario, Server& server) {
  System& system = server.system();
  system.major_version = scenario.major_version;
  system.minor_version = scenario.minor_version;
  system.build = scenario.build;
  system.language = scenario.language;
  system.computer_name = scenario.computer_name;

  BuildDisks(scenario, server);
  server.processes().Install("diskpart", Misbehaving(DiskpartProgram(), scenario.tools));

  const std::string link = "\\vantoro_restore.exe.lnk";
  const std::string folder = system.program_path.substr(0, system.program_path.rfind('\\'));
  if (scenario.common_startup_link)
    server.files().Write(system.common_startup_directory + link, "");
  if (scenario.program_link) server.files().Write(folder + link, "");

  // Last: the model's own writes are no calls of the program, but what runs later is.
  for (const ScenarioFault& fault : scenario.faults) {
    server.calls().FailNext(fault.name, fault.error, fault.occurrence, fault.lasting);
  }
}

}  // namespace simulator
