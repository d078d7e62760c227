// Work in a process of its own, which may crash or hang.
#ifndef TESTS_FAULT_SWEEP_CHILD_H_
#define TESTS_FAULT_SWEEP_CHILD_H_

#include <functional>
#include <string>
#include <vector>

namespace fault_sweep {

// What the work tells; any thread of it.
class Report {
 public:
  explicit Report(int descriptor) : descriptor_(descriptor) {}
  // A line for who looks at the test.
  void Problem(const std::string& text) const;
  // A line for the test itself.
  void Fact(const std::string& text) const;
  // The work leaves memory behind by design: nobody is to look for it.
  void AllowLeaks() { are_leaks_allowed_ = true; }
  bool AreLeaksAllowed() const { return are_leaks_allowed_; }

 private:
  void Write(std::string line) const;
  const int descriptor_;
  bool are_leaks_allowed_ = false;
};

struct ChildOutcome {
  std::string problems;  // also a crash, a hang, what a sanitizer found; empty when all is well
  std::vector<std::string> facts;
};

// The child begins as a copy of this process, which must have no other thread. What it writes to
// standard error is a problem.
ChildOutcome RunInChild(const std::function<void(Report&)>& work);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_CHILD_H_
