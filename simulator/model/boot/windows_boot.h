// The boot entries of a healthy Windows Server that boots from BIOS.
#ifndef SIMULATOR_MODEL_BOOT_WINDOWS_BOOT_H_
#define SIMULATOR_MODEL_BOOT_WINDOWS_BOOT_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/boot_store.h"

namespace simulator {

struct InstalledWindows {
  std::string folder;  // a full path: "C:\Windows"
  std::string description;
  std::string locale;
};

BootEntry WindowsLoader(const InstalledWindows& windows, std::string_view identifier,
                        std::string_view resume_identifier);

struct BootManagerFacts {
  std::string device;  // "partition=C:"
  std::string locale;
  std::string default_loader;  // an identifier; empty if there is none
  std::string resume_object;   // likewise
  std::vector<std::string> displayed;
};

BootEntry WindowsManager(const BootManagerFacts& facts);

// Returns an identifier with that number: "{00000007-4f2c-11ee-b962-806e6f6e6963}" for 7.
std::string NumberedIdentifier(uint32_t number);

// Returns a boot manager and one loader, which is the default entry and the current one.
Boot HealthyBoot();

}  // namespace simulator

#endif  // SIMULATOR_MODEL_BOOT_WINDOWS_BOOT_H_
