// The parsers against their rules, step by step, on texts that nobody thought of.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

#include "support/diskpart_results.h"

namespace common::win {
namespace {

using tests::Detail;
using tests::Disks;
using tests::kNothing;
using tests::ParsedDetail;
using tests::ParsedDisks;

std::vector<std::string> Cut(const std::string& text, const std::string& separator) {
  std::vector<std::string> pieces;
  size_t position = 0;
  for (size_t at = text.find(separator); at != std::string::npos;
       at = text.find(separator, position)) {
    pieces.push_back(text.substr(position, at - position));
    position = at + separator.size();
  }
  if (position != text.size()) pieces.push_back(text.substr(position));
  return pieces;
}

bool IsCanonical(const std::string& word) {
  return std::to_string(std::atoi(word.c_str())) == word;
}

Disks DisksByTheRules(const std::string& text) {
  Disks disks;
  for (const std::string& line : Cut(text, "\r\n")) {
    if (line.find("GB") == std::string::npos) continue;
    std::vector<std::string> words = Cut(line, " ");
    if (words.size() < 10) continue;
    std::erase(words, "");
    if (words.size() < 4) continue;
    disks.emplace_back(std::atoi(words[1].c_str()), std::atoi(words[3].c_str()));
  }
  return disks;
}

Detail DetailByTheRules(const std::string& text) {
  Detail detail = kNothing;
  for (const std::string& line : Cut(text, "\r\n")) {
    if (line.find("GB") == std::string::npos) continue;
    std::vector<std::string> words = Cut(line, " ");
    if (words.size() < 7) continue;
    std::erase(words, "");
    size_t last = 0;
    for (size_t i = 0; i < words.size(); ++i) {
      if (words[i] == "GB") last = i;
    }
    if (words.size() < 4 || last == 0) continue;
    if (!IsCanonical(words[last - 1]) || !IsCanonical(words[1])) continue;
    detail.has_volume = true;
    if (words[2].size() != 1) continue;
    const char letter = words[2][0];
    const bool upper = letter >= 'C' && letter <= 'Z';
    if (!upper && !(letter >= 'c' && letter <= 'z')) continue;
    detail.letter = upper ? static_cast<char>(letter + 0x20) : letter;
    break;
  }
  return detail;
}

// Lines much like the tool's, now and then with something odd between or among the words.
std::string RandomText(std::mt19937& random) {
  static const std::array<std::string, 20> kWords = {
      "GB", "GB", "GB", "5", "12", "40", "7", "07", "-3", "Volume",
      "c",  "D",  "A",  "z", "MB", "{",  "",  "",   "x1", "\xe7\xa3\x81"};
  static const std::array<std::string, 6> kOdd = {"\r", "\n", "\t", "\r\n", "      ", "GB"};
  std::string text;
  for (size_t lines = random() % 6; lines > 0; --lines) {
    for (size_t words = random() % 14; words > 0; --words) {
      text += kWords[random() % kWords.size()];
      text += random() % 20 == 0 ? kOdd[random() % kOdd.size()] : " ";
    }
    if (random() % 10 != 0) text += "\r\n";
  }
  return text;
}

TEST(DiskpartOutput, OfAnyKindIsReadByTheRules) {
  std::mt19937 random(1);
  int disks = 0;
  int volumes = 0;
  int letters = 0;
  for (int i = 0; i < 50000; ++i) {
    const std::string text = RandomText(random);
    const Disks expected_disks = DisksByTheRules(text);
    const Detail expected_detail = DetailByTheRules(text);
    ASSERT_EQ(ParsedDisks(text), expected_disks) << text;
    ASSERT_EQ(ParsedDetail(text), expected_detail) << text;
    disks += static_cast<int>(expected_disks.size());
    volumes += expected_detail.has_volume ? 1 : 0;
    letters += expected_detail.letter != 0 ? 1 : 0;
  }
  // The texts reach every branch.
  EXPECT_GT(disks, 1000);
  EXPECT_GT(volumes, 1000);
  EXPECT_GT(letters, 100);
}

TEST(DiskpartOutput, OfAnyBytesIsRead) {
  std::mt19937 random(2);
  for (int i = 0; i < 5000; ++i) {
    std::string text(random() % 300, '\0');
    for (char& c : text) c = static_cast<char>(random());
    ASSERT_EQ(ParsedDisks(text), DisksByTheRules(text));
    ASSERT_EQ(ParsedDetail(text), DetailByTheRules(text));
  }
}

}  // namespace
}  // namespace common::win
