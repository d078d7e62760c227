// The machine on which the tools run as Windows programs. Changes to the state also change real
// drive letters.
#ifndef WINE_PROGRAMS_SYSTEM_TOOL_PREFIX_MACHINE_H_
#define WINE_PROGRAMS_SYSTEM_TOOL_PREFIX_MACHINE_H_

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/tools/machine.h"
#include "wine/machine_state.h"

namespace simulator {

// Letters are Wine drives, defined and removed through Wine's mount manager, so that every running
// process sees changes at once. If a drive cannot be changed, the process ends.
class PrefixMachine : public Machine {
 public:
  explicit PrefixMachine(MachineState& state) : state_(state) {}

  const System& system() const override { return state_.system; }
  const std::vector<Disk>& disks() const override { return state_.disks; }
  Boot& boot() override { return state_.boot; }

  std::optional<char> LetterOf(const Volume& volume) const override;
  std::shared_ptr<Volume> VolumeAt(char letter) const override;
  std::optional<char> FreeLetter() const override;
  void Mount(char letter, const std::shared_ptr<Volume>& volume) override;
  void Unmount(char letter) override;

  DWORD ReadFrom(const std::string& path, std::string* bytes) const override;
  DWORD WriteTo(const std::string& path, std::string_view bytes) override;
  bool IsFolder(const std::string& path) const override;
  std::string FullPath(const std::string& path) const override;

 private:
  MachineState& state_;
};

}  // namespace simulator

#endif  // WINE_PROGRAMS_SYSTEM_TOOL_PREFIX_MACHINE_H_
