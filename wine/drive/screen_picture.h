// Pictures of the screen that DISPLAY names.
#ifndef WINE_DRIVE_SCREEN_PICTURE_H_
#define WINE_DRIVE_SCREEN_PICTURE_H_

#include <filesystem>

namespace simulator {

// Writes what the screen shows, without its margins, to a PNG file once two looks at it show the
// same: windows are painted some time after their state has changed. Throws std::runtime_error if
// that fails.
void TakePicture(const std::filesystem::path& file);

}  // namespace simulator

#endif  // WINE_DRIVE_SCREEN_PICTURE_H_
