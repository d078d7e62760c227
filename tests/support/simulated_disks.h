// Disks and disk tool scripts for tests of the simulated server.
#ifndef TESTS_SUPPORT_SIMULATED_DISKS_H_
#define TESTS_SUPPORT_SIMULATED_DISKS_H_

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"

namespace tests {

inline constexpr uint64_t kMB = uint64_t{1} << 20;
inline constexpr uint64_t kGB = uint64_t{1} << 30;

// Returns the text that the disk tool prints before the output of any command.
inline std::string DiskpartBannerOf(simulator::Server& server) {
  return simulator::RunDiskpartScript("", server).output;
}

// Returns the text that the disk tool prints after that.
inline std::string DiskpartOutput(std::string_view script, simulator::Server& server) {
  return simulator::RunDiskpartScript(script, server)
      .output.substr(DiskpartBannerOf(server).size());
}

// Returns the server's own volume for the letter C; otherwise returns a new volume.
inline std::shared_ptr<simulator::Volume> MakeVolume(simulator::Server& server,
                                                     const std::string& label,
                                                     std::optional<char> letter) {
  const bool system = letter == 'C';
  const auto volume = system ? server.files().VolumeAt('C') : server.files().AddVolume({});
  volume->label = label;
  if (letter && !system) server.files().Mount(*letter, volume);
  return volume;
}

// Adds disk 0 with Windows as C, and disk 1 with a volume as E and a partition without a volume.
inline void AddTwoDisks(simulator::Server& server) {
  simulator::Disk system;
  system.size = 127 * kGB;
  system.partitions = {{1, 126 * kGB, "Boot", MakeVolume(server, "Windows", 'C')}};
  simulator::Disk data;
  data.number = 1;
  data.size = 200 * kGB;
  data.partitions = {{1, 199 * kGB, "", MakeVolume(server, "Data", 'E')}, {2, kMB, "", nullptr}};
  server.disks() = {system, data};
}

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_DISKS_H_
