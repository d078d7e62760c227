// docs/security.md names a test for what it says; each of them is there.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>

#include "support/source_texts.h"

namespace {

namespace fs = std::filesystem;

constexpr char kTree[] = TEST_DATA_DIR "/../../";

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios_base::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool IsWord(std::string_view text) {
  return !text.empty() && std::isupper(static_cast<unsigned char>(text.front())) != 0 &&
         std::all_of(text.begin(), text.end(),
                     [](unsigned char c) { return std::isalnum(c) != 0; });
}

// "Suite.Name" of every TEST, TEST_F and TEST_P of a source.
void AddTests(const std::string& source, std::set<std::string>& tests) {
  for (size_t at = source.find("\nTEST"); at != std::string::npos;
       at = source.find("\nTEST", at + 1)) {
    const size_t begin = source.find('(', at);
    const size_t comma = source.find(',', begin);
    const size_t end = source.find(')', comma);
    if (end == std::string::npos) return;
    std::string name = source.substr(comma + 1, end - comma - 1);
    name.erase(0, name.find_first_not_of(" \n"));
    tests.insert(source.substr(begin + 1, comma - begin - 1) + "." + name);
  }
}

std::set<std::string> AllTests() {
  std::set<std::string> tests;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(kTree) / "tests")) {
    if (entry.path().extension() == ".cpp") AddTests(Read(entry.path()), tests);
  }
  return tests;
}

TEST(SecurityPage, NamesTestsThatAreThere) {
  const std::set<std::string> tests = AllTests();
  size_t named = 0;
  for (const std::string& span : tests::CodeSpans(Read(fs::path(kTree) / "docs" / "security.md"))) {
    const size_t point = span.find('.');
    if (point == std::string::npos || !IsWord(span.substr(0, point)) ||
        !IsWord(span.substr(point + 1))) {
      continue;
    }
    EXPECT_TRUE(tests.contains(span)) << span;
    ++named;
  }
  EXPECT_GT(named, 35U);
}

TEST(SecurityPage, NamesFilesThatAreThere) {
  size_t named = 0;
  for (const std::string& span : tests::CodeSpans(Read(fs::path(kTree) / "docs" / "security.md"))) {
    if (!span.starts_with("fuzz/") && !span.starts_with("tests/")) continue;
    EXPECT_TRUE(fs::exists(fs::path(kTree) / span)) << span;
    ++named;
  }
  EXPECT_GT(named, 5U);
}

}  // namespace
