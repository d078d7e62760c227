// A simulated server on which the program runs from entry to exit, its threads and tools in one
// order, so that call number n of a run is the same call in every run.
#ifndef TESTS_FAULT_SWEEP_SWEPT_SERVER_H_
#define TESTS_FAULT_SWEEP_SWEPT_SERVER_H_

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "fault_sweep/server_state.h"
#include "simulator/model/server.h"

namespace simulator {
class ChildProcess;
struct Scenario;
}  // namespace simulator

namespace fault_sweep {

// The server of a shipped scenario, but that its folders hold few files: each would only add calls
// that the others make as well. Its user lets it restart; a tool takes a second.
class SweptServer {
 public:
  explicit SweptServer(const std::string& scenario);
  ~SweptServer();
  SweptServer(const SweptServer&) = delete;
  SweptServer& operator=(const SweptServer&) = delete;

  // Runs the program in a process of its own. Faults are the caller's.
  void Run();
  // From now on the tools that the scenario lets fail work as the others.
  void RepairTools();
  // Breaks the next run off as that call of it, counted from 1, is made: of the calls only those
  // before it happen, and a tool whose output is not read yet has not begun.
  void BreakOffAt(int call) { break_off_at_ = call; }
  // Called on each thread of the program before its first call, and with every call that it makes.
  void OnCall(std::function<void()> listener) { listener_ = std::move(listener); }

  ServerState State() { return StateOf(server_, *scenario_); }
  std::string Log() const;  // of all runs so far; empty when there is none

  simulator::Server& server() { return server_; }
  const simulator::Scenario& scenario() const { return *scenario_; }

 private:
  void StartProcess();
  void Watch(std::string_view name);
  // What a tool does first.
  void TakeTime(const simulator::ChildProcess& child);
  void WaitForReader(const simulator::ChildProcess& child) const;

  mutable simulator::Server server_;
  const std::unique_ptr<const simulator::Scenario> scenario_;
  int break_off_at_ = 0;  // 0 for never
  std::function<void()> listener_;

  // Of the process that runs.
  std::thread::id main_thread_;
  int first_call_ = 0;  // its number, less one
  int64_t begin_ = 0;   // on the clock
  std::atomic<bool> shows_dialog_ = false;
  bool has_begun_ = false;        // the run
  std::atomic<int> reading_ = 0;  // the call that reads the output of the tool started last, or 0
};

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_SWEPT_SERVER_H_
