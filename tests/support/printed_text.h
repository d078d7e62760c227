// The text that the program prints to standard output, on both hosts.
#ifndef TESTS_SUPPORT_PRINTED_TEXT_H_
#define TESTS_SUPPORT_PRINTED_TEXT_H_

#include <cstddef>
#include <string>

namespace tests {

// Collects text from construction on. Only one may exist at a time. On Windows, standard output is
// not a console during this time.
class PrintedText {
 public:
  PrintedText();
  ~PrintedText();
  PrintedText(const PrintedText&) = delete;
  PrintedText& operator=(const PrintedText&) = delete;

  // Returns the text as the program printed it, without the runtime's translation of line ends.
  // Ends the collection.
  std::string Take();

 private:
  size_t begin_ = 0;
  bool is_taken_ = false;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PRINTED_TEXT_H_
