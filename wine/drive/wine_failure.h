// Failures of Wine itself. A process that Wine could not start says nothing about the program.
#ifndef WINE_DRIVE_WINE_FAILURE_H_
#define WINE_DRIVE_WINE_FAILURE_H_

#include <windows.h>

#include <filesystem>
#include <functional>
#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace simulator {

// what() is one line that names the failure.
class WineFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The evidence of a run under Wine after it has ended in any way.
struct RunEvidence {
  std::string trace;                 // the error output of Wine
  std::string log;                   // the program's log
  bool is_watched = false;           // the watching program has started
  std::optional<DWORD> start_error;  // the error code of CreateProcess if it failed
};

// Returns the line that names the failure if Wine itself failed; otherwise returns nothing. In the
// latter case the run is a valid test of the program.
std::optional<std::string> FailureOfWine(const RunEvidence& evidence);

// Returns the first line in which Wine reports that it cannot run one of its own processes.
std::optional<std::string> FailureInTrace(std::string_view trace);

// The text appended to a file of Wine's error output since construction.
class WineTrace {
 public:
  explicit WineTrace(std::filesystem::path file);
  std::string Text() const;

 private:
  const std::filesystem::path file_;
  const std::streamoff begin_;
};

// Calls `run`, and repeats it after a WineFailure, at most twice. Prints one line to `out` before
// each repetition. `run` has to begin with a new prefix. The third WineFailure and every other
// exception are passed to the caller.
void RunAgainWhereWineFails(const std::function<void()>& run, std::ostream& out);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_FAILURE_H_
