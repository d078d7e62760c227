// A file system of a simulated server.
#ifndef SIMULATOR_MODEL_FILES_VOLUME_H_
#define SIMULATOR_MODEL_FILES_VOLUME_H_

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

namespace simulator {

struct Node;  // a file or folder, see node.h

// A volume. Files stores its drive letter, if it has one. Writes and deletions by the program
// change `free`; those by tests do not.
struct Volume {
  std::string label;
  std::string file_system = "NTFS";
  uint64_t size = 0;                  // bytes
  uint64_t free = UINT64_C(1) << 40;  // bytes that can still be written
  UINT drive_type = DRIVE_FIXED;
  bool has_medium = true;      // false: of a drive without one; every access fails
  std::shared_ptr<Node> root;  // created when the volume is added to Files

  // Returns true if the volume supports descriptors and reparse points, as only NTFS does;
  // otherwise returns false.
  bool KeepsNtfsData() const { return file_system == "NTFS"; }
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_VOLUME_H_
