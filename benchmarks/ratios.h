// Ratios between two benchmarks of one run.
#ifndef BENCHMARKS_RATIOS_H_
#define BENCHMARKS_RATIOS_H_

#include <string>
#include <vector>

namespace benchmarks {

// `measured` and `reference` are names of benchmarks. A bound of 0 is none.
struct Ratio {
  std::string what;
  std::string measured;
  std::string reference;
  double bound;
};

// Each file of this folder registers its own, before main runs.
std::vector<Ratio>& Ratios();

struct RegisterRatio {
  explicit RegisterRatio(Ratio ratio) { Ratios().push_back(std::move(ratio)); }
};

}  // namespace benchmarks

#endif  // BENCHMARKS_RATIOS_H_
