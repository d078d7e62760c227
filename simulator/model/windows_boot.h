// The boot entries of a healthy Windows Server that starts from BIOS.
#ifndef SIMULATOR_MODEL_WINDOWS_BOOT_H_
#define SIMULATOR_MODEL_WINDOWS_BOOT_H_

#include <string>
#include <string_view>

#include "simulator/model/boot_store.h"

namespace simulator {

struct InstalledWindows {
  std::string folder;  // a full path: "C:\Windows"
  std::string description;
  std::string locale;
};

BootEntry WindowsLoader(const InstalledWindows& windows, std::string_view identifier,
                        std::string_view resume_identifier);

// A manager on that drive ("C:") that offers the loader alone, in the loader's locale.
BootEntry WindowsManager(std::string_view drive, const BootEntry& loader);

// A manager and one loader, its default, by which the server runs.
Boot HealthyBoot();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_WINDOWS_BOOT_H_
