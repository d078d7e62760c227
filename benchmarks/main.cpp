// Runs every benchmark several times, interleaved, and prints for each pair the ratio of their
// medians. Ends with status 1 when a bound is passed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "ratios.h"

namespace benchmarks {

std::vector<Ratio>& Ratios() {
  static std::vector<Ratio> ratios;
  return ratios;
}

namespace {

// Keeps the time of every repetition, in nanoseconds of the clock that the benchmark chose.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
      std::cerr << '.' << std::flush;
    }
  }

  // 0 when that benchmark has not run.
  double Median(const std::string& name) {
    std::vector<double>& times = times_[name];
    if (times.empty()) return 0;
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
  }

 private:
  std::map<std::string, std::vector<double>> times_;
};

std::string Text(const char* format, double number) {
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), format, number);
  return buffer;
}

std::string Duration(double nanoseconds) {
  if (nanoseconds >= 1e9) return Text("%.3f s", nanoseconds / 1e9);
  if (nanoseconds >= 1e6) return Text("%.3f ms", nanoseconds / 1e6);
  return Text("%.3f us", nanoseconds / 1e3);
}

void PrintRow(const std::vector<std::string>& cells) {
  static const int widths[] = {46, 12, 12, 9, 8};
  std::string row;
  for (size_t i = 0; i < cells.size(); ++i) {
    char buffer[128];
    std::snprintf(buffer, sizeof(buffer), i == 0 ? "%-*s" : "%*s", widths[i], cells[i].c_str());
    row += buffer;
  }
  std::cout << row << '\n';
}

// Whether every ratio stays within its bound.
bool PrintTable(Collector& collector) {
  bool within = true;
  PrintRow({"measured", "program", "reference", "ratio", "bound"});
  for (const Ratio& ratio : Ratios()) {
    const double measured = collector.Median(ratio.measured);
    const double reference = collector.Median(ratio.reference);
    if (measured <= 0 || reference <= 0) continue;  // filtered out
    const bool passed = ratio.bound > 0 && measured / reference > ratio.bound;
    PrintRow({ratio.what, Duration(measured), Duration(reference),
              Text("%.3f", measured / reference) + (passed ? "!" : ""),
              ratio.bound > 0 ? Text("%.2f", ratio.bound) : std::string("-")});
    if (passed) within = false;
  }
  return within;
}

}  // namespace
}  // namespace benchmarks

int main(int argc, char** argv) {
  std::vector<std::string> words(argv, argv + argc);
  words.insert(words.begin() + 1,
               {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  benchmarks::Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  std::cerr << '\n';
  return benchmarks::PrintTable(collector) ? 0 : 1;
}
