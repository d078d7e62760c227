#include "common/win/diskpart_output.h"

#include <algorithm>
#include <string>

#include "common/numbers.h"
#include "common/strings.h"

namespace common::win {
namespace {

constexpr std::string_view kGigabytes = "GB";

// Cuts the next line off the front of `text`.
std::string_view TakeLine(std::string_view& text) {
  constexpr std::string_view kLineEnd = "\r\n";
  const size_t end = text.find(kLineEnd);
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + kLineEnd.size());
  return line;
}

// How many pieces Split gives at single blanks, the empty ones counted.
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

// The words of a line that names a size in GB and has at least `min_pieces` pieces and four words;
// else none.
std::vector<std::string_view> WordsOfGigabyteLine(std::string_view line, size_t min_pieces) {
  if (line.find(kGigabytes) == std::string_view::npos || CountPieces(line) < min_pieces) return {};
  std::vector<std::string_view> words = Words(line);
  if (words.size() < 4) words.clear();
  return words;
}

// "Volume 2 D Data NTFS Partition 100 GB Healthy": a number in second place and one before the last
// "GB".
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
    if (third.size() == 1 && third[0] >= 'c' && third[0] <= 'z') {
      letter = third[0];
      return;
    }
  }
}

}  // namespace common::win
