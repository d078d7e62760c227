// The results of the parsers of diskpart's output, in a form that tests can compare and print.
#ifndef TESTS_SUPPORT_DISKPART_RESULTS_H_
#define TESTS_SUPPORT_DISKPART_RESULTS_H_

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "common/win/diskpart_output.h"

namespace tests {

using Disks = std::vector<std::pair<int, int>>;  // number and size

inline Disks ParsedDisks(const std::string& text) {
  Disks disks;
  for (const common::win::DiskpartInfo& disk : common::win::ParseDiskList(text)) {
    EXPECT_EQ(disk.Letter, 0);
    EXPECT_FALSE(disk.HasVolume);
    disks.emplace_back(disk.DiskNumber, disk.SizeGB);
  }
  return disks;
}

struct Detail {
  char letter;
  bool has_volume;
  bool operator==(const Detail&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const Detail& detail) {
  out << "{letter " << (detail.letter == 0 ? "none" : std::string(1, detail.letter));
  return out << (detail.has_volume ? ", a volume}" : ", no volume}");
}

inline constexpr Detail kNothing{0, false};
inline constexpr Detail kLetterless{0, true};

inline Detail ParsedDetail(const std::string& text) {
  Detail detail{'?', true};  // the parser sets both for every input
  common::win::ParseDiskDetail(text, detail.letter, detail.has_volume);
  return detail;
}

}  // namespace tests

#endif  // TESTS_SUPPORT_DISKPART_RESULTS_H_
