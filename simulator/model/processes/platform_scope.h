// Whether a thread runs code of the platform or of the program.
#ifndef SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_
#define SIMULATOR_MODEL_PROCESSES_PLATFORM_SCOPE_H_

namespace simulator {

// Returns true if the calling thread is within a call of the platform and not in a dialog procedure
// of the program; otherwise returns false. Calls that only read existing state are not taken into
// account.
bool IsInPlatformCall();

// Sets the result of IsInPlatformCall for the calling thread until destroyed.
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
