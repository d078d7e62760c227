// The heap that the ACL restore engine needs for a long backup file, against that for a short one.
#include <benchmark/benchmark.h>

#include <cstddef>

#include "acl/acl_util.h"
#include "counted/work.h"
#include "heap_use.h"
#include "ratios.h"

namespace {

void RestoreLines(benchmark::State& state, int lines) {
  const benchmarks::Work work = benchmarks::RestoreLines(lines);
  for (auto _ : state) {
    acl::ACLUtil::privileges_enabled = false;
    benchmarks::TakeHighestHeapUse();
    const size_t before = benchmarks::HeapInUse();
    if (!work()) state.SkipWithError("the work failed");
    state.counters[benchmarks::kHeapCounter] =
        static_cast<double>(benchmarks::TakeHighestHeapUse() - before);
  }
}

void RestoredMany(benchmark::State& state) { RestoreLines(state, 1'000'000); }
void RestoredFew(benchmark::State& state) { RestoreLines(state, 10'000); }

BENCHMARK(RestoredMany)->Iterations(1)->Repetitions(1);
BENCHMARK(RestoredFew)->Iterations(1)->Repetitions(1);

const benchmarks::RegisterHeapDifference heap({"heap for a million ACL lines / 10,000",
                                               "RestoredMany", "RestoredFew", 64 * 1024});

}  // namespace
