// The ACL restore engine over a long backup file: against a bare loop of the same platform calls on
// ready-made arguments, its reading of lines against fgets alone, and its growth with the file.
#include <windows.h>

#include <benchmark/benchmark.h>
#include <share.h>
#include <stdio.h>
#include <time.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "acl/account_sid.h"
#include "acl/acl_backup.h"
#include "acl/acl_util.h"
#include "bare_restore.h"
#include "heap_use.h"
#include "ratios.h"
#include "simulator/model/server.h"

namespace {

constexpr int kFewLines = 10'000;
constexpr int kManyLines = 1'000'000;
constexpr char kFile[] = "C:\\acl.dat";
constexpr DWORD kAttributes = 32;

constexpr const char* kDescriptors[] = {
    "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)",
    "O:SYG:SYD:PAI(D;;FW;;;BG)(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;AU)S:AI(AU;SAFA;FA;;;WD)",
    "O:S-1-5-21-397955417-626881126-188441444-1107G:BUD:PAI(A;;FA;;;SY)(A;;0x1301bf;;;BU)",
    "O:BAG:BAD:PAI(A;;FA;;;BA)",
};

struct Entry {
  std::string path;
  std::string sddl;
};

// A server with a few hundred files and a backup file of so many lines about them.
class BackupServer {
 public:
  explicit BackupServer(int lines) {
    server_.calls().KeepTrace(false);
    for (int i = 0; i < 300; ++i) {
      const std::string path = "C:\\Data\\Department " + std::to_string(i % 20) + "\\Report " +
                               std::to_string(i) + ".docx";
      server_.files().Write(path, "");
      entries_.push_back({path, kDescriptors[static_cast<size_t>(i) % std::size(kDescriptors)]});
    }
    std::string text;
    for (int i = 0; i < lines; ++i) {
      const Entry& entry = EntryOf(i);
      text +=
          "\"" + entry.path + "\"," + std::to_string(kAttributes) + ",\"" + entry.sddl + "\"\r\n";
    }
    server_.files().Write(kFile, std::move(text));
  }

  Entry& EntryOf(int line) { return entries_[static_cast<size_t>(line) % entries_.size()]; }

 private:
  simulator::Server server_;
  std::vector<Entry> entries_;
};

// The processor's time, which is less disturbed by others than the clock's.
double Seconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <typename Work>
void Measure(benchmark::State& state, int lines, int runs, Work work) {
  BackupServer server(lines);
  for (auto _ : state) {
    acl::ACLUtil::privileges_enabled = false;
    benchmarks::TakeHighestHeapUse();
    const size_t heap = benchmarks::HeapInUse();
    const double begin = Seconds();
    for (int run = 0; run < runs; ++run) {
      if (!work(server)) state.SkipWithError("the work failed");
    }
    state.SetIterationTime(Seconds() - begin);
    state.counters[benchmarks::kHeapCounter] =
        static_cast<double>(benchmarks::TakeHighestHeapUse() - heap);
  }
}

bool RunEngine(BackupServer& /*server*/) {
  acl::ACLUtil::privileges_enabled = false;
  acl::ACLUtil engine;
  common::UniqueLocal<void> administrators;
  if (acl::GetAccountSid("Administrators", administrators) != 0) return false;
  engine.SetAdminSid(std::move(administrators));
  engine.SetInputFile(kFile);
  return engine.RestoreFromFile(true, kManyLines, {0, 100}) == acl::kRestored;
}

bool RunBare(BackupServer& server) {
  acl::ACLUtil privileges;
  static_cast<void>(privileges.EnablePrivileges());
  std::FILE* const file = ::_fsopen(kFile, "rt", _SH_DENYNO);
  if (file == nullptr) return false;
  std::array<char, 4096> block{};
  while (std::fread(block.data(), 1, block.size(), file) == block.size()) continue;
  std::fclose(file);
  for (int i = 0; i < kManyLines; ++i) {
    Entry& entry = server.EntryOf(i);
    benchmarks::RestoreBare(entry.path, kAttributes, entry.sddl);
  }
  return true;
}

bool ReadLines(bool split) {
  std::FILE* const file = ::_fsopen(kFile, "rt", _SH_DENYNO);
  if (file == nullptr) return false;
  std::array<char, 8192> line{};
  uint32_t sum = 0;
  while (std::fgets(line.data(), 8190, file) != nullptr) {
    if (split) {
      const acl::AclBackupRecord record = acl::ParseAclLine(line.data());
      sum += acl::SecurityInformationOf(record.Sddl);
      benchmark::DoNotOptimize(record.Path.data());
    }
    benchmark::DoNotOptimize(line.data());
  }
  benchmark::DoNotOptimize(sum);
  std::fclose(file);
  return true;
}

void RestoredMany(benchmark::State& state) { Measure(state, kManyLines, 1, RunEngine); }
void RestoredFewOften(benchmark::State& state) {
  Measure(state, kFewLines, kManyLines / kFewLines, RunEngine);
}
void BareMany(benchmark::State& state) { Measure(state, kManyLines, 1, RunBare); }
void SplitMany(benchmark::State& state) {
  Measure(state, kManyLines, 1, [](BackupServer&) { return ReadLines(true); });
}
void ReadMany(benchmark::State& state) {
  Measure(state, kManyLines, 1, [](BackupServer&) { return ReadLines(false); });
}

BENCHMARK(RestoredMany)->UseManualTime()->Iterations(1)->Repetitions(3);
BENCHMARK(RestoredFewOften)->UseManualTime()->Iterations(1)->Repetitions(3);
BENCHMARK(BareMany)->UseManualTime()->Iterations(1)->Repetitions(3);
BENCHMARK(SplitMany)->UseManualTime()->Iterations(1)->Repetitions(5);
BENCHMARK(ReadMany)->UseManualTime()->Iterations(1)->Repetitions(5);

const benchmarks::RegisterRatio against_bare({"a million ACL lines / bare platform calls",
                                              "RestoredMany", "BareMany", 1.1});
const benchmarks::RegisterRatio reading({"reading and splitting them / fgets", "SplitMany",
                                         "ReadMany", 2.0});
const benchmarks::RegisterRatio growth({"a million ACL lines / 100 times 10,000", "RestoredMany",
                                        "RestoredFewOften", 1.05});
const benchmarks::RegisterHeapDifference heap({"heap for a million ACL lines / 10,000",
                                               "RestoredMany", "RestoredFewOften", 64 * 1024});

}  // namespace
