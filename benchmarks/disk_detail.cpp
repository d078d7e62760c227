// Parsing of a long disk detail against one pass of memchr over it.
#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

#include "common/win/diskpart_output.h"
#include "ratios.h"

namespace {

// 1 MB of volume lines without letters, so that all of it is read.
const std::string& Detail() {
  static const std::string text = [] {
    std::string lines;
    while (lines.size() < size_t{1} << 20) {
      lines +=
          "  Volume 3         Data         NTFS   Partition    100 GB  Healthy            \r\n";
    }
    return lines;
  }();
  return text;
}

void ParseDiskDetail(benchmark::State& state) {
  for (auto _ : state) {
    char letter = 0;
    bool has_volume = false;
    common::win::ParseDiskDetail(Detail(), letter, has_volume);
    benchmark::DoNotOptimize(has_volume);
  }
}

void Memchr(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::memchr(Detail().data(), '\0', Detail().size()));
  }
}

BENCHMARK(ParseDiskDetail);
BENCHMARK(Memchr);

const benchmarks::RegisterRatio ratio({"ParseDiskDetail of 1 MB / memchr", "ParseDiskDetail",
                                       "Memchr", 0});

}  // namespace
