// The standard output of a rehearsal while the program runs: the log, the message boxes and the
// dialog. A terminal shows the dialog below the log and updates it in place.
#ifndef REHEARSAL_SCREEN_H_
#define REHEARSAL_SCREEN_H_

#include <windows.h>

#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/desktop/message_boxes.h"

namespace simulator {

struct ShownDialog;

// Thread-safe. Lines of different threads are not interleaved.
class Screen {
 public:
  enum class Kind {
    kPlain,     // prints a line whenever the dialog's title or bar changes
    kTerminal,  // at least 80 columns of ANSI escape sequences
  };

  // The log is in that code page; all other text is UTF-8.
  Screen(std::ostream& out, Kind kind, UINT log_code_page)
      : out_(out), kind_(kind), log_code_page_(log_code_page) {}

  // Appends bytes of the log. A line is shown, in UTF-8, once it is complete.
  void ShowLog(std::string_view bytes);
  // Shows a message box and its answer.
  void ShowBox(const ShownMessageBox& box, int answer);
  // Shows the dialog. The terminal keeps the last picture of a destroyed dialog.
  void ShowDialog(const ShownDialog& dialog);

 private:
  // Called with the lock held.
  void PutLines(std::string_view lines);
  void Erase();
  void Draw();

  std::ostream& out_;
  const Kind kind_;
  const UINT log_code_page_;
  std::mutex mutex_;
  std::string unfinished_;  // the incomplete last line of the log
  // The dialog as the terminal shows it; empty if it shows none.
  std::vector<std::string> picture_;
  std::string line_;
};

}  // namespace simulator

#endif  // REHEARSAL_SCREEN_H_
