// Failures of Wine itself: a process that it could not start says nothing about the program.
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

// What is known of a run under Wine once it has ended, in whatever way.
struct RunEvidence {
  std::string trace;                 // what Wine wrote to its error output
  std::string log;                   // the program's log
  bool is_watched = false;           // the watching program came up
  std::optional<DWORD> start_error;  // the program was not started: the code of CreateProcess
};

// Returns the line that names the failure if Wine itself failed. Returns nothing for everything
// else, and then the run says something about the program.
std::optional<std::string> FailureOfWine(const RunEvidence& evidence);

// Returns the first line in which Wine reports that it cannot run one of its own processes.
std::optional<std::string> FailureInTrace(std::string_view trace);

// What is appended to a file of Wine's error output after the object was made.
class WineTrace {
 public:
  explicit WineTrace(std::filesystem::path file);
  std::string Text() const;

 private:
  const std::filesystem::path file_;
  const std::streamoff begin_;
};

// Calls `run`, and again, at most twice, after a WineFailure; each time prints one line to `out`.
// `run` has to begin with a fresh prefix. The third WineFailure and every other exception pass
// through.
void RunAgainWhereWineFails(const std::function<void()>& run, std::ostream& out);

}  // namespace simulator

#endif  // WINE_DRIVE_WINE_FAILURE_H_
