#include "wine/measures/programs/measure/measure.h"

#include <cstdio>
#include <stdexcept>

namespace benchmarks {

int64_t Microseconds() {
  constexpr int64_t kMillion = 1'000'000;
  LARGE_INTEGER frequency{};
  LARGE_INTEGER count{};
  ::QueryPerformanceFrequency(&frequency);
  ::QueryPerformanceCounter(&count);
  return count.QuadPart / frequency.QuadPart * kMillion +
         count.QuadPart % frequency.QuadPart * kMillion / frequency.QuadPart;
}

void Tell(const std::string& name, int64_t microseconds) {
  std::printf("%s %lld\n", name.c_str(), static_cast<long long>(microseconds));
  std::fflush(stdout);
}

common::UniqueHandle StartProgram(const std::string& path) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  if (!::CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
    throw std::runtime_error("cannot start " + path);
  }
  ::CloseHandle(process.hThread);
  return common::UniqueHandle(process.hProcess);
}

}  // namespace benchmarks
