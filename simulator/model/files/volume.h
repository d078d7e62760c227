// A file system of a simulated server.
#ifndef SIMULATOR_MODEL_FILES_VOLUME_H_
#define SIMULATOR_MODEL_FILES_VOLUME_H_

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

namespace simulator {

struct Node;  // a file or folder, see node.h

// Its letter, if it has one, is kept by Files. What the program writes and deletes counts against
// `free`; what tests put there does not.
struct Volume {
  std::string label;
  std::string file_system = "NTFS";
  uint64_t size = 0;                  // bytes
  uint64_t free = UINT64_C(1) << 40;  // bytes that can still be written
  UINT drive_type = DRIVE_FIXED;
  std::shared_ptr<Node> root;  // made when it is added to Files

  // Descriptors and reparse points are NTFS's alone.
  bool KeepsNtfsData() const { return file_system == "NTFS"; }
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_FILES_VOLUME_H_
