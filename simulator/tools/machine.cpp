#include "simulator/tools/machine.h"

#include "simulator/model/server.h"

namespace simulator {

std::shared_ptr<Volume> WindowsVolume(const Machine& machine) {
  return machine.VolumeAt(machine.system().system_directory.front());
}

}  // namespace simulator
