// Captured output of the system's tools, from the tests' data folder. For both hosts.
#ifndef TESTS_SUPPORT_SAMPLES_H_
#define TESTS_SUPPORT_SAMPLES_H_

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tests {

// Returns a sample as the tool printed it. The lines are stored with LF and returned with CR LF.
inline std::string ReadToolSample(const std::string& folder, const std::string& name) {
  const std::string path = TEST_DATA_DIR "/" + folder + name;
  std::ifstream file(path, std::ios_base::binary);
  EXPECT_TRUE(file.is_open()) << path;
  std::string text;
  for (auto at = std::istreambuf_iterator<char>(file); at != std::istreambuf_iterator<char>();
       ++at) {
    if (*at == '\n') text += '\r';
    text += *at;
  }
  EXPECT_FALSE(text.empty()) << path;
  return text;
}

inline int CountSamples(const std::string& folder) {
  const std::filesystem::directory_iterator files(TEST_DATA_DIR "/" + folder);
  return static_cast<int>(std::distance(begin(files), end(files)));
}

}  // namespace tests

#endif  // TESTS_SUPPORT_SAMPLES_H_
