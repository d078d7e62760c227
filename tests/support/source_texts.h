// The texts in the program's sources, and those in a page that explains them. For both hosts.
#ifndef TESTS_SUPPORT_SOURCE_TEXTS_H_
#define TESTS_SUPPORT_SOURCE_TEXTS_H_

#include <string>
#include <string_view>
#include <vector>

namespace tests {

struct SourceText {
  std::string text;    // without escapes; adjacent literals are joined
  std::string before;  // the code before it in its line, or, in a continued line, in the line above
};

// Returns the string literals of C++ source, except those in comments and the names of included
// files. Raw string literals are not supported.
std::vector<SourceText> SourceTexts(std::string_view source);

// Returns the texts of a resource script that windows and message boxes show: captions, controls,
// string tables.
std::vector<std::string> ResourceTexts(std::string_view script);

// Returns a message as the page spells it: with "…" for each conversion and without a line end.
std::string InThePage(std::string_view message);

// Returns the code spans of a Markdown text, in order. A span does not extend past its line.
std::vector<std::string> CodeSpans(std::string_view markdown);

}  // namespace tests

#endif  // TESTS_SUPPORT_SOURCE_TEXTS_H_
