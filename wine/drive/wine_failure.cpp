#include "wine/drive/wine_failure.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>
#include <utility>

namespace simulator {
namespace {

// ERROR_INTERNAL_ERROR. CreateProcess gives it under Wine when the new process ended before it had
// reported to the server, thus before any code of the program in it ran.
constexpr DWORD kInternalError = 1359;

constexpr char kNotStarted[] = "Wine could not start a process (1359)";

// How the program logs the code of CreateProcess for a tool.
constexpr std::string_view kToolNotStarted =
    "WinUtil::CreateProgressNoWait Failed: Last Error: [1359]";

// Wine's loader writes these before it has loaded any program.
bool IsFailureOfLoader(const std::string& line) {
  return line.find("wine: failed to map the shared user data") != std::string::npos ||
         line.starts_with("wine: could not exec ") ||
         line.starts_with("wine: could not load ntdll.so") ||
         line.starts_with("wine client error:");
}

std::streamoff SizeOf(const std::filesystem::path& file) {
  std::error_code none;
  const auto size = std::filesystem::file_size(file, none);
  return none ? 0 : static_cast<std::streamoff>(size);
}

}  // namespace

std::optional<std::string> FailureInTrace(std::string_view trace) {
  std::istringstream lines{std::string(trace)};
  for (std::string line; std::getline(lines, line);) {
    if (!IsFailureOfLoader(line)) continue;
    line.erase(std::remove(line.begin(), line.end(), '\r'), line.end());
    return "Wine could not run one of its processes (" + line + ")";
  }
  return std::nullopt;
}

std::optional<std::string> FailureOfWine(const RunEvidence& evidence) {
  if (std::optional<std::string> failure = FailureInTrace(evidence.trace)) return failure;
  if (evidence.start_error == kInternalError) return kNotStarted;
  if (evidence.log.find(kToolNotStarted) != std::string::npos) return kNotStarted;
  if (!evidence.is_watched) return "Wine did not start the program that watches the run";
  return std::nullopt;
}

WineTrace::WineTrace(std::filesystem::path file) : file_(std::move(file)), begin_(SizeOf(file_)) {}

std::string WineTrace::Text() const {
  std::ifstream stream(file_, std::ios::binary);
  stream.seekg(begin_);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void RunAgainWhereWineFails(const std::function<void()>& run, std::ostream& out) {
  constexpr int kRepetitions = 2;
  for (int left = kRepetitions;; --left) {
    try {
      run();
      return;
    } catch (const WineFailure& failure) {
      if (left == 0) throw;
      out << failure.what() << "; once more in a fresh prefix" << std::endl;
    }
  }
}

}  // namespace simulator
