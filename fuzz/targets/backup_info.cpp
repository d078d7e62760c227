// The backup information file of a volume.
#include "restore/backup_info.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>

#include "acl/prepare_dir.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "simulator/model/server.h"
#include "support/recording_logger.h"

namespace fuzz {
namespace {

constexpr size_t kLongestLine = 511;

// Text without what text mode or the reader treats in a way of its own.
bool IsPlain(std::string_view bytes) {
  size_t length = 0;
  for (const char c : bytes) {
    length = c == '\n' ? 0 : length + 1;
    if (c == '\0' || c == '\r' || c == '\x1A' || length > kLongestLine) return false;
  }
  return true;
}

void CheckLine(logger::Logger& logger, std::string_view bytes, int number) {
  std::string line = "as it was";
  const bool is_read = restore::ReadBackupInfoLine(logger, 'c', number, line);
  Expect(line.size() <= kLongestLine, "a line has 511 characters at most");
  Expect(line.find('\n') == std::string::npos && line.find('\0') == std::string::npos,
         "a line ends before its line end and before a zero byte");
  if (!IsPlain(bytes)) return;
  Expect(is_read == (number <= std::count(bytes.begin(), bytes.end(), '\n')),
         "the lines are there, and one behind the last line end");
  if (!is_read) return;
  std::istringstream stream{std::string(bytes)};
  std::string expected;
  for (int i = 0; i <= number; ++i) {
    expected.clear();
    std::getline(stream, expected);
  }
  Expect(line == expected, "a plain line is read as it stands");
}

}  // namespace

void BackupInfo(std::string_view bytes) {
  simulator::Server server;
  server.files().Write("C:\\vantoro_prepare\\backup_info", std::string(bytes));
  tests::RecordingLogger logger;
  for (const int number : {0, 1, 3, 7}) CheckLine(logger, bytes, number);

  char letter = '?';
  const bool has_letter = restore::ReadBackupInfo(logger, 'c', letter);
  Expect(has_letter ? letter >= 'c' && letter <= 'z' : letter == '?',
         "a letter is one from c to z, or nothing was read");
  uint32_t count = 0;
  const bool has_count = acl::ReadACLCount(logger, 'c', count);
  Expect(has_count ? count > 0 && count <= INT32_MAX : count == 0,
         "a count is positive, or nothing was read");
  Expect(server.OpenHandles().empty(), "no handle is left");
}

}  // namespace fuzz
