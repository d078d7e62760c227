// Whose code a thread runs: the platform's or the program's.
#ifndef SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_
#define SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_

namespace simulator {

// Whether the calling thread is within a call of the platform, and not back in a dialog procedure
// of the program's. Calls that only read what is there do not count.
bool IsInPlatformCall();

// Says so of the calling thread as long as it lives.
class PlatformScope {
 public:
  explicit PlatformScope(bool is_in_call = true);
  ~PlatformScope();
  PlatformScope(const PlatformScope&) = delete;
  PlatformScope& operator=(const PlatformScope&) = delete;

 private:
  const bool was_in_call_;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_
