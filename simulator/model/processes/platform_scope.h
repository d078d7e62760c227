// Whether a thread runs code of the platform or of the program.
#ifndef SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_
#define SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_

#include <utility>

namespace simulator {

// Sets the result of IsInPlatformCall for the calling thread until destroyed.
class PlatformScope {
 public:
  explicit PlatformScope(bool is_in_call = true)
      : was_in_call_(std::exchange(is_in_call_, is_in_call)) {}
  ~PlatformScope() { is_in_call_ = was_in_call_; }
  PlatformScope(const PlatformScope&) = delete;
  PlatformScope& operator=(const PlatformScope&) = delete;

 private:
  friend bool IsInPlatformCall();

  static inline thread_local bool is_in_call_ = false;
  const bool was_in_call_;
};

// Returns true if the calling thread is within a call of the platform and not in a dialog procedure
// of the program; otherwise returns false. Calls that only read existing state are not taken into
// account.
inline bool IsInPlatformCall() { return PlatformScope::is_in_call_; }

}  // namespace simulator

#endif  // SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_
