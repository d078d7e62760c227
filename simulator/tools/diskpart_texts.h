// The texts of the disk tool in the language of a server. They are those of captures; of what no
// capture shows, the text is English, unless System::disk_tool_texts has one.
#ifndef SIMULATOR_TOOLS_DISKPART_TEXTS_H_
#define SIMULATOR_TOOLS_DISKPART_TEXTS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace simulator {

struct System;

class DiskpartTexts {
 public:
  explicit DiskpartTexts(const System& system);

  // Returns the text for an English one of Names().
  std::string Of(std::string_view english) const;

  // Returns a size in a column of seven characters, the unit of which may extend past it:
  // " 127 GB", " 931 G octets". Without the blanks at its start it is the size alone.
  std::string Size(uint64_t bytes) const;

  // The widths of the columns whose contents, unlike their headings, are not those of the English
  // tool: the status and the free space of a disk, the number of a volume.
  size_t StatusWidth() const;
  size_t FreeWidth() const;
  size_t VolumeNumberWidth() const;

  // Returns the English texts that Of accepts. That of a table's heading is its first line.
  static std::span<const std::string_view> Names();

 private:
  struct Language;

  // That of English if there is no capture.
  static const Language* Find(const System& system);

  const System& system_;
  const Language* const language_;
};

// The first lines of the headings of "list disk" (before and from Windows 6.0) and "detail disk".
inline constexpr std::string_view kOldDiskHeading =
    "Disk ###  Status      Size     Free     Dyn  Gpt";
inline constexpr std::string_view kDiskHeading =
    "Disk ###  Status         Size     Free     Dyn  Gpt";
inline constexpr std::string_view kVolumeHeading =
    "Volume ###  Ltr  Label        Fs     Type        Size     Status     Info    ";

}  // namespace simulator

#endif  // SIMULATOR_TOOLS_DISKPART_TEXTS_H_
