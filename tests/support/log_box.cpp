#include "support/log_box.h"

#include <regex>

#include "support/log_operations.h"

namespace tests {

std::string LogBoxText(const std::string& log) {
  static const std::regex printed(
      R"(\[\w+\] {1,2}(Vantoro Restore Begin\.\.\.)"
      R"(|Restore BCD (?:Begin\.\.\.|Done!|Error\.))"
      R"(|Restore Disks (?:Begin\.\.\.|Done!|Error\.))"
      R"(|RestoreDisks Remove Disk \d+ Letter Successfully!)"
      R"(|RestoreDisks Assign Disk \d+ (?:Letter\[.\]|Random Letter) Successfully!)"
      R"(|WinUtil::RunScript .*)"
      R"(|Restore \[.*\]\.\.\.)"
      R"(|Delete (?:Real )?Startup Link \[.*\] Failed\.)"
      R"(|Vantoro Restore Finish, Total .*)"
      R"(|Vantoro Restore Finished! time: .*)"
      R"(|Vantoro Restore Not Finished! See Details Info In Log File \[.*\]\.))");
  std::string text;
  for (const std::string& line : LinesWithoutStamp(log)) {
    std::smatch match;
    if (std::regex_match(line, match, printed)) text += match[1].str() + "\r\n";
  }
  return text;
}

}  // namespace tests
