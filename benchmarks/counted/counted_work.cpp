// counted_work KIND LINES: does so much work of one kind. The instructions of Counted are those of
// the work, without what makes it ready.
#include <map>
#include <string>

#include "benchmarks/counted/work.h"

// Found by its name, see ./bench.
extern "C" [[gnu::noinline]] bool Counted(const benchmarks::Work& work) { return work(); }

int main(int argc, char** argv) {
  const std::map<std::string, benchmarks::Work (*)(int)> kinds = {
      {"acl", benchmarks::RestoreLines},   {"acl_bare", benchmarks::RestoreLinesBare},
      {"split", benchmarks::SplitLines},   {"split_bare", benchmarks::ReadLines},
      {"log", benchmarks::LogLines},       {"log_bare", benchmarks::LogLinesBare},
      {"detail", benchmarks::ParseDetail}, {"detail_bare", benchmarks::SearchDetail},
  };
  const auto kind = kinds.find(argc == 3 ? argv[1] : "");
  if (kind == kinds.end()) return 2;
  return Counted(kind->second(std::stoi(argv[2]))) ? 0 : 1;
}
