#include "common/win/diskpart_output.h"

#include <algorithm>
#include <string>

#include "common/numbers.h"
#include "common/strings.h"

namespace common::win {
namespace {

constexpr std::string_view kGigabytes = "GB";

// Returns the next line and removes it from `text`.
std::string_view TakeLine(std::string_view& text) {
  constexpr std::string_view kLineEnd = "\r\n";
  const size_t end = text.find(kLineEnd);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
  return line;
}

// Returns the number of pieces, including empty ones, that Split gives at single spaces.
size_t CountPieces(std::string_view line) {
  const auto blanks = static_cast<size_t>(std::count(line.begin(), line.end(), ' '));
  return !line.empty() && line.back() != ' ' ? blanks + 1 : blanks;
}

std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  words.reserve(16);  // more than any line of diskpart's has
  for (size_t begin = line.find_first_not_of(' '); begin != std::string_view::npos;) {
    const size_t end = std::min(line.find(' ', begin), line.size());
    words.push_back(line.substr(begin, end - begin));
    begin = line.find_first_not_of(' ', end);
  }
  return words;
}

// Returns the words of a line that contains a size in GB and has at least `min_pieces` pieces and
// four words; empty for any other line.
// Oddity: sizes in GB, see docs/oddities.md.
std::vector<std::string_view> WordsOfGigabyteLine(std::string_view line, size_t min_pieces) {
  if (line.find(kGigabytes) == std::string_view::npos || CountPieces(line) < min_pieces) return {};
  std::vector<std::string_view> words = Words(line);
  if (words.size() < 4) words.clear();
  return words;
}

// "Volume 2 D Data NTFS Partition 100 GB Healthy": the second word and the word before the last
// "GB" are numbers.
bool IsVolume(const std::vector<std::string_view>& words) {
  const auto unit = std::find(words.rbegin(), words.rend(), kGigabytes);
  if (unit == words.rend() || std::next(unit) == words.rend()) return false;
  return IsCanonicalDecimal(*std::next(unit)) && IsCanonicalDecimal(words[1]);
}

}  // namespace

std::vector<DiskpartInfo> ParseDiskList(std::string_view text) {
  std::vector<DiskpartInfo> disks;
  while (!text.empty()) {
    const std::vector<std::string_view> words = WordsOfGigabyteLine(TakeLine(text), 10);
    if (words.empty()) continue;
    DiskpartInfo disk;
    disk.DiskNumber = ReadDecimal(words[1]);
    disk.SizeGB = ReadDecimal(words[3]);
    disks.push_back(disk);
  }
  return disks;
}

void ParseDiskDetail(std::string_view text, char& letter, bool& has_volume) {
  letter = 0;
  has_volume = false;
  while (!text.empty()) {
    const std::vector<std::string_view> words = WordsOfGigabyteLine(TakeLine(text), 7);
    if (words.empty() || !IsVolume(words)) continue;
    has_volume = true;
    const std::string third = ToLowerAscii(words[2]);
    // Oddity: one-letter label, see docs/oddities.md.
    // Oddity: drives A and B, see docs/oddities.md.
    if (third.size() == 1 && third[0] >= 'c' && third[0] <= 'z') {
      // Oddity: first letter of a disk, see docs/oddities.md.
      letter = third[0];
      return;
    }
  }
}

}  // namespace common::win
