// Every target over its first inputs and their beginnings, without libFuzzer.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "fuzz/targets.h"

namespace fuzz {
namespace {

namespace fs = std::filesystem;

struct Input {
  Target target;
  fs::path file;
};

void PrintTo(const Input& input, std::ostream* out) { *out << input.file; }

std::vector<Input> Inputs() {
  std::vector<Input> inputs;
  for (const Target& target : kTargets) {
    for (const auto& entry : fs::directory_iterator(fs::path(FUZZ_CORPUS_DIR) / target.name)) {
      inputs.push_back({target, entry.path()});
    }
  }
  std::sort(inputs.begin(), inputs.end(),
            [](const Input& a, const Input& b) { return a.file < b.file; });
  return inputs;
}

std::string NameOf(const testing::TestParamInfo<Input>& test) {
  std::string name =
      std::string(test.param.target.name) + "_" + test.param.file.filename().string();
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

class Replay : public testing::TestWithParam<Input> {
 protected:
  std::string Bytes() const {
    std::ifstream stream(GetParam().file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
};

TEST_P(Replay, KeepsEveryProperty) {
  const std::string bytes = Bytes();
  ASSERT_FALSE(bytes.empty());
  GetParam().target.function(bytes);
}

TEST_P(Replay, KeepsEveryPropertyOfItsBeginnings) {
  constexpr size_t kMostBeginnings = 8;
  const std::string bytes = Bytes();
  const size_t step = bytes.size() / kMostBeginnings + 1;
  for (size_t length = 0; length < bytes.size(); length += step) {
    // In memory of its own, where a reader that goes too far is caught.
    const std::vector<char> beginning(bytes.begin(),
                                      bytes.begin() + static_cast<std::ptrdiff_t>(length));
    GetParam().target.function({beginning.data(), beginning.size()});
  }
}

INSTANTIATE_TEST_SUITE_P(Corpus, Replay, testing::ValuesIn(Inputs()), NameOf);

TEST(Corpus, HoldsInputsOfTheTargetsAlone) {
  for (const auto& entry : fs::directory_iterator(FUZZ_CORPUS_DIR)) {
    if (!entry.is_directory()) continue;
    EXPECT_TRUE(std::any_of(kTargets.begin(), kTargets.end(), [&](const Target& target) {
      return entry.path().stem() == target.name;
    })) << entry.path();
  }
}

}  // namespace
}  // namespace fuzz
