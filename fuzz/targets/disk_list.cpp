// What diskpart prints for "list disk".
#include <algorithm>

#include "common/win/diskpart_output.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"

namespace fuzz {
namespace {

size_t CountLines(std::string_view text) {
  size_t count = 1;
  for (size_t at = text.find("\r\n"); at != std::string_view::npos;
       at = text.find("\r\n", at + 2)) {
    ++count;
  }
  return count;
}

}  // namespace

void DiskList(std::string_view bytes) {
  const auto disks = common::win::ParseDiskList(bytes);
  Expect(disks.size() <= CountLines(bytes), "a line names one disk at most");
  Expect(disks.empty() || bytes.find("GB") != std::string_view::npos,
         "a disk has a size in gigabytes");
  Expect(std::all_of(disks.begin(), disks.end(),
                     [](const auto& disk) { return disk.Letter == 0 && !disk.HasVolume; }),
         "the list tells of no volume");

  // Lines do not know of each other.
  const size_t line_end = bytes.find("\r\n");
  if (line_end == std::string_view::npos) return;
  const auto first = common::win::ParseDiskList(bytes.substr(0, line_end));
  const auto others = common::win::ParseDiskList(bytes.substr(line_end + 2));
  Expect(first.size() + others.size() == disks.size(), "every line counts by itself");
}

}  // namespace fuzz
