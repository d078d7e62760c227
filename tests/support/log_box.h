// What the log box of the dialog shows of a run, derived from the run's log.
#ifndef TESTS_SUPPORT_LOG_BOX_H_
#define TESTS_SUPPORT_LOG_BOX_H_

#include <string>

namespace tests {

// Returns the messages of those lines of a log that the run also prints on the console, each with
// CR LF. The messages are recognised by their wording.
std::string LogBoxText(const std::string& log);

}  // namespace tests

#endif  // TESTS_SUPPORT_LOG_BOX_H_
