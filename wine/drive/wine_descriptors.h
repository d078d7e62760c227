// What a Wine prefix keeps of the descriptors of a source server: as much as fits into the mode of
// a file. It is compared with what plain calls leave that set the same texts on a second server.
#ifndef WINE_DRIVE_WINE_DESCRIPTORS_H_
#define WINE_DRIVE_WINE_DESCRIPTORS_H_

#include <cstddef>
#include <filesystem>

#include "rehearsal/report/report_descriptors.h"
#include "wine/drive/wine_server.h"

namespace simulator {

struct KeptDescriptors {
  DescriptorOutcome outcome;
  size_t changed = 0;  // objects whose descriptors the plain calls changed
};

// The objects of the scenario's lists, as they are on the server, which was made from it. The
// second server stands in a folder that is made anew and taken away. Throws std::exception.
KeptDescriptors GatherKeptDescriptors(const Scenario& scenario, const WineServer& server,
                                      const std::filesystem::path& second_folder);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_DESCRIPTORS_H_
