// The capture of a tool's output against a bare loop of the same reads, and its growth with the
// size. Two threads wait for each other: the times are only shown. tests/load counts the reads.
#include <windows.h>

#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "common/win/win_util.h"
#include "logger/b_logger.h"
#include "ratios.h"
#include "simulator/model/processes/processes.h"
#include "simulator/model/server.h"

namespace {

constexpr size_t kMegabyte = size_t{1} << 20;

// A tool that writes lines of 64 characters, a buffer full at a time.
void InstallTool(simulator::Server& server, size_t megabytes) {
  server.processes().Install(
      "tool", [megabytes](simulator::Server&, simulator::ChildProcess& child) {
        std::string block;
        while (block.size() < 4096) block += std::string(62, 'x') + "\r\n";
        for (size_t written = 0; written < megabytes * kMegabyte; written += block.size()) {
          child.WriteOutput(block);
        }
        return DWORD{0};
      });
}

std::string CaptureBare() {
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  HANDLE read_end = nullptr;
  HANDLE write_end = nullptr;
  if (!::CreatePipe(&read_end, &write_end, &inheritable, 0)) return {};
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = write_end;
  startup.hStdError = write_end;
  PROCESS_INFORMATION information{};
  std::array<char, 8> command{"tool"};
  if (!::CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                        nullptr, &startup, &information)) {
    return {};
  }
  ::CloseHandle(write_end);
  std::string text;
  std::array<char, 1024> buffer{};
  DWORD count = 0;
  while (::ReadFile(read_end, buffer.data(), 1023, &count, nullptr)) {
    text.append(buffer.data(), count);
  }
  ::CloseHandle(read_end);
  ::CloseHandle(information.hProcess);
  ::CloseHandle(information.hThread);
  return text;
}

template <typename Capture>
void Measure(benchmark::State& state, size_t megabytes, Capture capture) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      simulator::Server server;
      InstallTool(server, megabytes);
      state.ResumeTiming();
      const std::string text = capture();
      state.PauseTiming();
      if (text.size() != megabytes * kMegabyte) state.SkipWithError("output is lost");
    }
    state.ResumeTiming();
  }
}

std::string CaptureByProgram() {
  logger::BLogger logger("bench", "C:\\");
  common::win::WinUtil tools("", "", "");
  tools.SetLogger(&logger);
  std::string output;
  return tools.ExecCommandWithResults("", "tool", output) == 0 ? output : std::string();
}

void Captured64(benchmark::State& state) { Measure(state, 64, CaptureByProgram); }
void Captured256(benchmark::State& state) { Measure(state, 256, CaptureByProgram); }
void Bare64(benchmark::State& state) { Measure(state, 64, CaptureBare); }

BENCHMARK(Captured64)->UseRealTime()->Iterations(1);
BENCHMARK(Captured256)->UseRealTime()->Iterations(1);
BENCHMARK(Bare64)->UseRealTime()->Iterations(1);

const benchmarks::RegisterRatio against_bare({"64 MB of captured output / bare reads", "Captured64",
                                              "Bare64", 0});
const benchmarks::RegisterRatio growth({"256 MB of captured output / 64 MB", "Captured256",
                                        "Captured64", 0});

}  // namespace
