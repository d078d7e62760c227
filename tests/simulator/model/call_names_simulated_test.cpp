// The list of calls against the sources of the calls.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "simulator/model/call_names.h"
#include "support/source_texts.h"

namespace simulator {
namespace {

namespace fs = std::filesystem;

bool IsName(const std::string& text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
    return std::isalnum(c) != 0 || c == '_' || c == ':';
  });
}

// The names that are the first argument of a function under simulator/api, except of the one that
// ends the process.
std::set<std::string> NamesInSources() {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(TEST_DATA_DIR "/../../simulator/api")) {
    if (entry.path().extension() != ".cpp") continue;
    std::ifstream stream(entry.path(), std::ios::binary);
    const std::string source{std::istreambuf_iterator<char>(stream), {}};
    for (const tests::SourceText& found : tests::SourceTexts(source)) {
      const std::string& before = found.before;
      if (before.ends_with("Unsupported(") || !before.ends_with('(')) continue;
      if (IsName(found.text)) names.insert(found.text);
    }
  }
  names.erase("SeShutdownPrivilege");  // of a privilege
  return names;
}

TEST(CallNames, AreThoseOfTheCalls) {
  const auto listed = CallNames();
  EXPECT_EQ(std::set<std::string>(listed.begin(), listed.end()), NamesInSources());
  EXPECT_TRUE(std::is_sorted(listed.begin(), listed.end()));
}

}  // namespace
}  // namespace simulator
