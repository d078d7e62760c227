#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "support/host.h"

namespace tests {

struct HostTest::Host {};

HostTest::HostTest() : host_(std::make_unique<Host>()) {
  const std::string name = "vantoro_test_" + std::to_string(::GetCurrentProcessId());
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / name;
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  folder_ = folder.string();
}

HostTest::~HostTest() {
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

HINSTANCE HostTest::Program() { return ::GetModuleHandleW(nullptr); }

void HostTest::WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios_base::binary) << bytes;
}

std::string HostTest::ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios_base::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void HostTest::MakeFolder(const std::string& path) { std::filesystem::create_directories(path); }

bool HostTest::Exists(const std::string& path) { return std::filesystem::exists(path); }

}  // namespace tests
