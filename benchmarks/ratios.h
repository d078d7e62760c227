// What is compared between two benchmarks of one run.
#ifndef BENCHMARKS_RATIOS_H_
#define BENCHMARKS_RATIOS_H_

#include <string>
#include <utility>
#include <vector>

namespace benchmarks {

// `measured` and `reference` are names of benchmarks. A bound of 0 is none.
struct Ratio {
  std::string what;
  std::string measured;
  std::string reference;
  double bound;
};

// The heap that two benchmarks need beyond what was in use when they began, which each tells in its
// counter kHeapCounter. `bound` is the most that the two may differ by. All in bytes.
struct HeapDifference {
  std::string what;
  std::string measured;
  std::string reference;
  double bound;
};
inline constexpr char kHeapCounter[] = "heap";

// Each file of this folder registers its own, before main runs.
std::vector<Ratio>& Ratios();
std::vector<HeapDifference>& HeapDifferences();

struct RegisterRatio {
  explicit RegisterRatio(Ratio ratio) { Ratios().push_back(std::move(ratio)); }
};

struct RegisterHeapDifference {
  explicit RegisterHeapDifference(HeapDifference difference) {
    HeapDifferences().push_back(std::move(difference));
  }
};

}  // namespace benchmarks

#endif  // BENCHMARKS_RATIOS_H_
