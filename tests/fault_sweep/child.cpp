#include "fault_sweep/child.h"

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <sstream>

#if defined(VANTORO_CHECKS_ADDRESSES)
#include <sanitizer/lsan_interface.h>
#endif

#if defined(VANTORO_CHECKS_THREADS)
// A child ends without joining what it has started.
extern "C" const char* __tsan_default_options() { return "report_thread_leaks=0"; }
#endif

namespace fault_sweep {
namespace {

constexpr char kFact = '@';
// Ends a hang, and decides nothing else: a run takes some hundredths of a second, and some seconds
// under the sanitizers while others keep every processor busy.
constexpr unsigned kMostSeconds = 300;

// Writes what it finds to standard error.
void LookForLeaks() {
#if defined(VANTORO_CHECKS_ADDRESSES)
  static_cast<void>(__lsan_do_recoverable_leak_check());
#endif
}

[[noreturn]] void Work(const std::function<void(Report&)>& work, int descriptor) {
  ::dup2(descriptor, STDERR_FILENO);
  ::alarm(kMostSeconds);
  Report report(descriptor);
  work(report);
  if (!report.AreLeaksAllowed()) LookForLeaks();
  ::_exit(0);
}

std::string ReadAll(int descriptor) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count <= 0) return text;
    text.append(buffer.data(), static_cast<size_t>(count));
  }
}

std::string EndOf(int status) {
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return "";
  if (WIFEXITED(status)) return "ended with code " + std::to_string(WEXITSTATUS(status)) + "\n";
  if (WTERMSIG(status) == SIGALRM) {
    return "has not ended after " + std::to_string(kMostSeconds) + " seconds\n";
  }
  return "crashed with signal " + std::to_string(WTERMSIG(status)) + "\n";
}

}  // namespace

void Report::Problem(const std::string& text) const { Write(text); }

void Report::Fact(const std::string& text) const { Write(kFact + text); }

void Report::Write(std::string line) const {
  line += '\n';
  if (::write(descriptor_, line.data(), line.size()) < 0) std::abort();
}

ChildOutcome RunInChild(const std::function<void(Report&)>& work) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return {"no pipe\n", {}};
  const pid_t child = ::fork();
  if (child < 0) return {"no process\n", {}};
  if (child == 0) {
    ::close(ends[0]);
    Work(work, ends[1]);
  }
  ::close(ends[1]);
  const std::string text = ReadAll(ends[0]);
  ::close(ends[0]);
  int status = 0;
  ::waitpid(child, &status, 0);

  ChildOutcome outcome;
  outcome.problems = EndOf(status);
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.front() == kFact) {
      outcome.facts.push_back(line.substr(1));
    } else {
      outcome.problems += line + "\n";
    }
  }
  return outcome;
}

}  // namespace fault_sweep
