// What the program prints on standard output, on both hosts.
#ifndef TESTS_SUPPORT_PRINTED_TEXT_H_
#define TESTS_SUPPORT_PRINTED_TEXT_H_

#include <cstddef>
#include <string>

namespace tests {

// Collects from its making on; one at a time. On Windows standard output is no console meanwhile.
class PrintedText {
 public:
  PrintedText();
  ~PrintedText();
  PrintedText(const PrintedText&) = delete;
  PrintedText& operator=(const PrintedText&) = delete;

  // The text as the program printed it, without the runtime's translation of line ends. Ends the
  // collecting.
  std::string Take();

 private:
  size_t begin_ = 0;
  bool is_taken_ = false;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_PRINTED_TEXT_H_
