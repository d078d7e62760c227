// The descriptors of a source server that a Wine prefix retains. Wine retains only as much as fits
// into the mode of a file. They are compared with the result of API calls that set the same
// descriptors on a second server.
#ifndef WINE_DRIVE_WINE_DESCRIPTORS_H_
#define WINE_DRIVE_WINE_DESCRIPTORS_H_

#include <cstddef>
#include <filesystem>

#include "rehearsal/report/report_descriptors.h"
#include "wine/drive/wine_server.h"

namespace simulator {

struct KeptDescriptors {
  DescriptorOutcome outcome;
  size_t changed = 0;  // objects whose descriptors the API calls changed
};

// Compares the objects that the scenario's ACL backup files name, on `server`, which was built from
// the scenario. The second server is created in `second_folder`, which is cleared first and removed
// afterwards. Throws std::exception.
KeptDescriptors GatherKeptDescriptors(const Scenario& scenario, const WineServer& server,
                                      const std::filesystem::path& second_folder);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_DESCRIPTORS_H_
