// The interface through which the system's tools read and change the machine that they run on: a
// server in memory, or a Wine prefix that represents one.
#ifndef SIMULATOR_TOOLS_MACHINE_H_
#define SIMULATOR_TOOLS_MACHINE_H_

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"

namespace simulator {

struct System;
struct Volume;

// Letters are accepted in either case and returned in upper case. Paths are UTF-8 text. Functions
// that can fail return a system error code.
class Machine {
 public:
  virtual ~Machine() = default;

  virtual const System& system() const = 0;
  virtual const std::vector<Disk>& disks() const = 0;
  virtual Boot& boot() = 0;

  virtual std::optional<char> LetterOf(const Volume& volume) const = 0;
  virtual std::shared_ptr<Volume> VolumeAt(char letter) const = 0;  // null if it is free
  virtual std::optional<char> FreeLetter() const = 0;               // the first from C on
  virtual void Mount(char letter, const std::shared_ptr<Volume>& volume) = 0;  // a free letter
  virtual void Unmount(char letter) = 0;

  virtual DWORD ReadFrom(const std::string& path, std::string* bytes) const = 0;
  virtual DWORD WriteTo(const std::string& path, std::string_view bytes) = 0;  // a new file
  virtual bool IsFolder(const std::string& path) const = 0;
  virtual std::string FullPath(const std::string& path) const = 0;  // empty if there is none
};

std::shared_ptr<Volume> WindowsVolume(const Machine& machine);

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_MACHINE_H_
