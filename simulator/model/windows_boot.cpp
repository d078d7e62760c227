#include "simulator/model/windows_boot.h"

#include <utility>

namespace simulator {

BootEntry WindowsLoader(const InstalledWindows& windows, std::string_view identifier,
                        std::string_view resume_identifier) {
  const std::string partition = "partition=" + windows.folder.substr(0, 2);
  const std::string root = windows.folder.substr(2);
  return {BootEntryType::kLoader,
          std::string(identifier),
          {{"device", {partition}},
           {"path", {root + "\\system32\\winload.exe"}},
           {"description", {windows.description}},
           {"locale", {windows.locale}},
           {"inherit", {"{bootloadersettings}"}},
           {"recoveryenabled", {"No"}},
           {"allowedinmemorysettings", {"0x15000075"}},
           {"osdevice", {partition}},
           {"systemroot", {root}},
           {"resumeobject", {std::string(resume_identifier)}},
           {"nx", {"OptOut"}},
           {"bootstatuspolicy", {"IgnoreAllFailures"}},
           {"ems", {"Yes"}}}};
}

BootEntry WindowsManager(std::string_view drive, const BootEntry& loader) {
  BootEntry manager{BootEntryType::kManager, std::string(kBootManager), {}};
  manager.Set("device", {"partition=" + std::string(drive)});
  manager.Set("description", {"Windows Boot Manager"});
  manager.Set("locale", loader.Values("locale"));
  manager.Set("inherit", {"{globalsettings}"});
  manager.Set("bootshutdowndisabled", {"Yes"});
  manager.Set("default", {loader.identifier});
  manager.Set("resumeobject", loader.Values("resumeobject"));
  manager.Set("displayorder", {loader.identifier});
  manager.Set("toolsdisplayorder", {"{memdiag}"});
  manager.Set("timeout", {"30"});
  return manager;
}

Boot HealthyBoot() {
  BootEntry loader = WindowsLoader({"C:\\Windows", "Windows Server 2016", "en-US"},
                                   "{b35d4dcb-5b1e-11e9-a814-000d3a05463f}",
                                   "{b35d4dca-5b1e-11e9-a814-000d3a05463f}");
  std::string current = loader.identifier;
  BootEntry manager = WindowsManager("C:", loader);
  return {{{std::move(manager), std::move(loader)}}, std::move(current)};
}

}  // namespace simulator
