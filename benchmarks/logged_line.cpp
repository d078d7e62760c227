// One logged line against a formatted write and flush of the same bytes through the same stream.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <iostream>

#include "common/file_stream.h"
#include "logger/b_logger.h"
#include "ratios.h"
#include "simulator/model/server.h"

namespace {

// Every iteration starts with an empty disk and an empty trace.
constexpr int kLines = 20000;

void LoggedLine(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    simulator::Server server;
    logger::BLogger logger("bench", "C:\\");
    logger.Info("first");
    state.ResumeTiming();
    for (int line = 0; line < kLines; ++line) {
      logger.Info("RestoreDisks Assign Disk %d Letter [%c] Failed.", line, 'e');
    }
    state.PauseTiming();
    state.SetItemsProcessed(state.items_processed() + kLines);
    state.ResumeTiming();
  }
}

void BareLine(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    simulator::Server server;
    common::FileStream file;
    file.open("C:\\bench.log", std::ios_base::out | std::ios_base::app);
    state.ResumeTiming();
    for (int line = 0; line < kLines; ++line) {
      char buffer[2048];
      std::snprintf(buffer, sizeof(buffer),
                    "[%04d-%02d-%02d %02d:%02d:%02d] [%s]  RestoreDisks Assign Disk %d Letter [%c] "
                    "Failed.\n",
                    2024, 3, 5, 8, 7, 6, "Info", line, 'e');
      file << buffer << std::flush;
    }
    state.PauseTiming();
    state.ResumeTiming();
  }
}

BENCHMARK(LoggedLine)->UseRealTime()->Unit(benchmark::kNanosecond);
BENCHMARK(BareLine)->UseRealTime()->Unit(benchmark::kNanosecond);

const benchmarks::RegisterRatio ratio({"a logged line / formatted write and flush", "LoggedLine",
                                       "BareLine", 1.25});

}  // namespace
