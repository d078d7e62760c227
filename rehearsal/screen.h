// The standard output of a rehearsal while the program runs: its log, its message boxes, and its
// dialog, which a terminal shows below the log and in place.
#ifndef REHEARSAL_SCREEN_H_
#define REHEARSAL_SCREEN_H_

#include <cstddef>
#include <mutex>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/desktop/message_boxes.h"

namespace simulator {

struct ShownDialog;

// Thread-safe: lines of different threads never mix.
class Screen {
 public:
  enum class Kind {
    kPlain,     // a line whenever the dialog's title or bar changes
    kTerminal,  // at least 80 columns of ANSI escape sequences
  };

  Screen(std::ostream& out, Kind kind) : out_(out), kind_(kind) {}

  // Bytes of the log; they show once their line is whole.
  void ShowLog(std::string_view bytes);
  // With the answer that was given.
  void ShowBox(const ShownMessageBox& box, int answer);
  // A dialog that is destroyed stays on the terminal as it was last.
  void ShowDialog(const ShownDialog& dialog);

 private:
  // With the lock held.
  void PutLines(std::string_view lines);
  void Erase();
  void Draw();

  std::ostream& out_;
  const Kind kind_;
  std::mutex mutex_;
  std::string unfinished_;  // of the log
  // The dialog as it stands on the screen; empty when it does not.
  std::vector<std::string> picture_;
  std::string line_;
};

}  // namespace simulator

#endif  // REHEARSAL_SCREEN_H_
