// Runs every benchmark several times, interleaved, and prints for each pair the ratio of their
// medians. Ends with status 1 when a bound is passed.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "ratios.h"
#include "table.h"

namespace benchmarks {

std::vector<Ratio>& Ratios() {
  static std::vector<Ratio> ratios;
  return ratios;
}

std::vector<HeapDifference>& HeapDifferences() {
  static std::vector<HeapDifference> differences;
  return differences;
}

namespace {

// Keeps the time of every repetition, in nanoseconds of the clock that the benchmark chose, and the
// most heap that one needed.
class Collector : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context& /*context*/) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
      times_[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
      const auto heap = run.counters.find(kHeapCounter);
      if (heap != run.counters.end()) {
        double& most = heap_[run.run_name.function_name];
        most = std::max(most, heap->second.value);
      }
      std::cerr << '.' << std::flush;
    }
  }

  // Both are 0 when that benchmark has not run.
  double Heap(const std::string& name) { return heap_[name]; }
  double Median(const std::string& name) { return benchmarks::Median(times_[name]); }

 private:
  std::map<std::string, std::vector<double>> times_;
  std::map<std::string, double> heap_;
};

// Whether every difference stays within its bound.
bool PrintHeapDifferences(Collector& collector) {
  constexpr double kKibibyte = 1024;
  bool within = true;
  for (const HeapDifference& difference : HeapDifferences()) {
    const double measured = collector.Heap(difference.measured);
    const double reference = collector.Heap(difference.reference);
    if (measured <= 0 || reference <= 0) continue;  // filtered out
    const double apart = std::abs(measured - reference);
    const bool passed = apart > difference.bound;
    PrintRow({difference.what, Text("%.1f KiB", measured / kKibibyte),
              Text("%.1f KiB", reference / kKibibyte),
              Text("+-%.1f", apart / kKibibyte) + (passed ? "!" : ""),
              Text("%.0f KiB", difference.bound / kKibibyte)});
    if (passed) within = false;
  }
  return within;
}

// Whether everything stays within its bound.
bool PrintTable(Collector& collector) {
  bool within = true;
  PrintHeader();
  for (const Ratio& ratio : Ratios()) {
    const double measured = collector.Median(ratio.measured);
    const double reference = collector.Median(ratio.reference);
    if (measured <= 0 || reference <= 0) continue;  // filtered out
    within = PrintRatio(ratio.what, measured, reference, ratio.bound) && within;
  }
  return PrintHeapDifferences(collector) && within;
}

}  // namespace
}  // namespace benchmarks

int main(int argc, char** argv) {
  std::vector<std::string> words(argv, argv + argc);
  words.insert(words.begin() + 1,
               {"--benchmark_repetitions=9", "--benchmark_enable_random_interleaving=true"});
  std::vector<char*> arguments;
  arguments.reserve(words.size());
  for (std::string& word : words) arguments.push_back(word.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  benchmarks::Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  std::cerr << '\n';
  return benchmarks::PrintTable(collector) ? 0 : 1;
}
