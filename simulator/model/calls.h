// What the program called, in order, and which of its calls are to fail.
#ifndef SIMULATOR_MODEL_CALLS_H_
#define SIMULATOR_MODEL_CALLS_H_

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace simulator {

struct TracedCall {
  int number;             // 1 for the first call of the run
  std::string name;       // "CreatePipe"; the C runtime's under its own name, "_access"
  std::string arguments;  // the arguments worth reading, separated by ", "
};

enum class Lasting { kOnce, kForGood };

// Thread-safe.
class Calls {
 public:
  // Numbers and keeps a call. Returns the error it must fail with, when a fault is due: a system
  // error code for a Win32 call, an errno for one of the C runtime.
  std::optional<uint32_t> Enter(std::string_view name, std::string arguments);

  // Fails call `number` of the run (1 is the first), or that and every later one.
  void FailNumber(int number, uint32_t error, Lasting lasting = Lasting::kOnce);
  // Fails the `occurrence`-th call of that name from now on (1 is the next).
  void FailNext(std::string_view name, uint32_t error, int occurrence = 1,
                Lasting lasting = Lasting::kOnce);
  void ClearFaults();

  // Called with each call before it is numbered, on the thread that makes it, without a lock held:
  // it may hold the thread up, and end the process. Set while the program does not run.
  using Watcher = std::function<void(std::string_view name, const std::string& arguments)>;
  void Watch(Watcher watcher);
  void TellWatcher(std::string_view name, const std::string& arguments) const;

  // Whether calls are kept from now on; they are at first. All are numbered and may fail.
  void KeepTrace(bool keep);
  std::vector<TracedCall> Trace() const;
  // The arguments of every call of that name, in order.
  std::vector<std::string> ArgumentsOf(std::string_view name) const;
  int Count() const;

 private:
  struct Fault {
    int number;        // of the run, or 0
    std::string name;  // or empty
    int remaining;     // calls of that name until the fault is due
    uint32_t error;
    Lasting lasting;
  };

  mutable std::mutex mutex_;
  int count_ = 0;
  bool keeps_trace_ = true;
  std::vector<TracedCall> trace_;
  std::vector<Fault> faults_;
  Watcher watcher_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_CALLS_H_
