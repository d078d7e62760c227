// docs/oddities.md lists every oddity that a comment in src/ names, with its files, and no other.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/source_texts.h"

namespace {

namespace fs = std::filesystem;
using Files = std::set<std::string>;

// The files in which each oddity is, by its name.
using Oddities = std::map<std::string, Files>;

constexpr char kTree[] = TEST_DATA_DIR "/../../";
constexpr size_t kNone = std::string_view::npos;

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios_base::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    text.remove_prefix(end == kNone ? text.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

// The name in a line that consists of the comment alone; empty for every other line.
std::string CommentedName(std::string_view line) {
  constexpr std::string_view kBegin = "// Oddity: ";
  constexpr std::string_view kEnd = ", see docs/oddities.md.";
  const size_t indent = line.find_first_not_of(' ');
  if (indent == kNone) return {};
  line.remove_prefix(indent);
  if (!line.starts_with(kBegin) || !line.ends_with(kEnd) ||
      line.size() <= kBegin.size() + kEnd.size()) {
    return {};
  }
  line.remove_prefix(kBegin.size());
  line.remove_suffix(kEnd.size());
  return std::string(line);
}

// The name in a row of a table whose first cell is bold; empty for every other line.
std::string EntryName(std::string_view line) {
  constexpr std::string_view kBegin = "| **";
  constexpr std::string_view kEnd = "** |";
  const size_t end = line.find(kEnd, kBegin.size());
  if (!line.starts_with(kBegin) || end == kNone) return {};
  return std::string(line.substr(kBegin.size(), end - kBegin.size()));
}

// The text files of the program, with "/" between folders, as the page names them.
Files SourceFiles() {
  Files files;
  const fs::path folder = fs::path(kTree) / "src";
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".cpp" || extension == ".h" || extension == ".rc") {
      files.insert("src/" + entry.path().lexically_relative(folder).generic_string());
    }
  }
  EXPECT_GT(files.size(), 80U);
  return files;
}

Oddities CommentedOddities() {
  Oddities oddities;
  for (const std::string& file : SourceFiles()) {
    for (const std::string& line : Lines(Read(fs::path(kTree) / file))) {
      const std::string name = CommentedName(line);
      if (!name.empty()) oddities[name].insert(file);
    }
  }
  return oddities;
}

Oddities ListedOddities() {
  Oddities oddities;
  for (const std::string& line : Lines(Read(fs::path(kTree) / "docs" / "oddities.md"))) {
    const std::string name = EntryName(line);
    if (name.empty()) continue;
    EXPECT_FALSE(oddities.contains(name)) << "two entries are named " << name;
    Files& files = oddities[name];
    for (const std::string& span : tests::CodeSpans(line)) {
      if (span.starts_with("src/")) files.insert(span);
    }
  }
  return oddities;
}

TEST(OdditiesPage, HasAnEntryForEveryComment) {
  const Oddities listed = ListedOddities();
  const Oddities commented = CommentedOddities();
  EXPECT_GT(commented.size(), 25U);
  for (const auto& [name, files] : commented) {
    EXPECT_TRUE(listed.contains(name)) << *files.begin() << " names " << name;
  }
}

TEST(OdditiesPage, HasNoEntryWithoutAComment) {
  const Oddities commented = CommentedOddities();
  for (const auto& [name, files] : ListedOddities()) {
    EXPECT_TRUE(commented.contains(name)) << "no comment in src/ names " << name;
  }
}

TEST(OdditiesPage, NamesTheFilesOfTheComments) {
  const Oddities commented = CommentedOddities();
  for (const auto& [name, files] : ListedOddities()) {
    const auto found = commented.find(name);
    if (found == commented.end()) continue;
    EXPECT_EQ(files, found->second) << name;
  }
}

// Any other spelling would escape the tests above.
TEST(OdditiesPage, IsNamedInOneFormOnly) {
  for (const std::string& file : SourceFiles()) {
    for (const std::string& line : Lines(Read(fs::path(kTree) / file))) {
      if (line.find("Oddity:") == kNone && line.find("oddities.md") == kNone) continue;
      EXPECT_FALSE(CommentedName(line).empty()) << file << ": " << line;
    }
  }
}

TEST(OdditiesPage, HasTextInEveryCell) {
  for (const std::string& line : Lines(Read(fs::path(kTree) / "docs" / "oddities.md"))) {
    const std::string name = EntryName(line);
    if (name.empty()) continue;
    size_t cells = 0;
    for (size_t at = line.find(" | "); at != kNone; at = line.find(" | ", at + 1)) ++cells;
    EXPECT_EQ(cells, 3U) << name;
    EXPECT_TRUE(line.ends_with(". |")) << name;
  }
}

}  // namespace
