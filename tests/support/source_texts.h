// The texts in the program's sources, and those in a page that explains them. Both hosts.
#ifndef TESTS_SUPPORT_SOURCE_TEXTS_H_
#define TESTS_SUPPORT_SOURCE_TEXTS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tests {

struct SourceText {
  std::string text;    // without its escapes; neighbouring literals make one
  std::string before;  // the line's code in front of it, or of a continued line the line above's
};

// The string literals of C++ source, but for comments and the names of included files. Raw literals
// are not known.
std::vector<SourceText> SourceTexts(std::string_view source);

// What a resource script shows in windows and boxes: captions, controls, string tables.
std::vector<std::string> ResourceTexts(std::string_view script);

// A message as the page spells it: "…" for each conversion, no line end.
std::string InThePage(std::string_view message);

// The pieces of a Markdown text between backquotes, in their order; none reaches past its line.
std::vector<std::string> CodeSpans(std::string_view markdown);

}  // namespace tests

#endif  // TESTS_SUPPORT_SOURCE_TEXTS_H_
