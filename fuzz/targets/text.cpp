// The text functions, against what their headers promise and against the C library.
#include <cctype>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/format.h"
#include "common/numbers.h"
#include "common/paths.h"
#include "common/strings.h"
#include "common/times.h"
#include "fuzz/expect.h"
#include "fuzz/fields.h"
#include "fuzz/targets.h"

namespace fuzz {
namespace {

std::string Printed(const char* format, auto value) {
  char buffer[512];
  std::snprintf(buffer, sizeof(buffer), format, value);
  return buffer;
}

std::string Joined(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string text;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i != 0) text += separator;
    text += pieces[i];
  }
  return text;
}

// Whether no occurrence of the text can overlap another one.
bool IsUnbordered(std::string_view text) {
  for (size_t length = 1; length < text.size(); ++length) {
    if (text.ends_with(text.substr(0, length))) return false;
  }
  return true;
}

void CheckSplit(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces = {"as it was"};
  common::Split(text, separator, pieces);
  Expect(pieces.front() == "as it was", "what is there stays");
  pieces.erase(pieces.begin());

  const std::string joined = Joined(pieces, separator);
  const bool has_trailing = !separator.empty() && joined.size() + separator.size() == text.size();
  Expect(has_trailing ? joined + std::string(separator) == text : joined == text,
         "pieces and separators make the text again");
  for (const std::string& piece : pieces) {
    Expect(separator.empty() || piece.find(separator) == std::string::npos,
           "no piece holds the separator");
  }
  if (separator.empty()) Expect(pieces.size() <= 1, "an empty separator never matches");

  if (separator.empty() || !IsUnbordered(separator)) return;
  while (!pieces.empty() && pieces.back().empty()) pieces.pop_back();
  std::vector<std::string> again;
  common::Split(Joined(pieces, separator), separator, again);
  Expect(again == pieces, "pieces that were joined come back");
}

void CheckTrims(std::string_view text, std::string_view set) {
  const std::string trimmed = common::TrimSpaces(text);
  const size_t first = text.find(trimmed);
  Expect(trimmed.empty() || (trimmed.front() != ' ' && trimmed.back() != ' '),
         "no blank is left at the ends");
  Expect(first != std::string_view::npos, "what is trimmed is a part of the text");
  Expect(text.substr(0, first).find_first_not_of(' ') == std::string_view::npos &&
             text.substr(first + trimmed.size()).find_first_not_of(' ') == std::string_view::npos,
         "nothing but blanks is trimmed");

  const std::string_view left = common::TrimLeft(text, set);
  const std::string_view right = common::TrimRight(text, set);
  if (text.find_first_not_of(set) == std::string_view::npos) {
    Expect(left == text && right == text, "a text of such characters alone is not trimmed");
    return;
  }
  Expect(set.find(left.front()) == std::string_view::npos, "the left end is trimmed");
  Expect(set.find(right.back()) == std::string_view::npos, "the right end is trimmed");
  Expect(text.ends_with(left) && text.starts_with(right), "one end is trimmed, not the other");
  Expect(
      text.substr(0, text.size() - left.size()).find_first_not_of(set) == std::string_view::npos &&
          text.substr(right.size()).find_first_not_of(set) == std::string_view::npos,
      "nothing but such characters is trimmed");
}

void CheckCases(std::string_view text) {
  const std::string upper = common::ToUpperAscii(text);
  const std::string lower = common::ToLowerAscii(text);
  Expect(upper.size() == text.size() && lower.size() == text.size(), "the length stays");
  for (size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    const bool is_ascii = byte < 0x80;
    Expect(upper[i] == (is_ascii ? static_cast<char>(std::toupper(byte)) : text[i]),
           "upper case is the C library's, of ASCII alone");
    Expect(lower[i] == (is_ascii ? static_cast<char>(std::tolower(byte)) : text[i]),
           "lower case is the C library's, of ASCII alone");
  }
}

void CheckPaths(const std::string& folder, const std::string& name) {
  const std::string path = common::JoinPath(folder, name);
  const std::string dir = common::JoinDir(folder, name);
  if (folder.empty() || name.empty()) {
    Expect(path.empty() && dir.empty(), "nothing is joined to nothing");
    return;
  }
  Expect(path == (folder.ends_with('\\') ? folder : folder + "\\") + name,
         "one backslash joins a path");
  Expect(dir == (path.ends_with('\\') ? path : path + "\\"), "one backslash ends a folder");
}

void CheckDecimal(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  const long expected = value < INT_MIN ? INT_MIN : value > INT_MAX ? INT_MAX : value;
  const int number = common::ReadDecimal(text);
  Expect(number == expected, "a number is read as the C library reads it");
  Expect(common::IsCanonicalDecimal(text) == (Printed("%d", number) == text),
         "canonical is what the C library prints");
}

void CheckNumbers(std::string_view bytes) {
  const auto number = NumberOf<uint32_t>(bytes);
  Expect(common::ToDecimal(number) == Printed("%u", number), "decimals are the C library's");
  const auto fraction = NumberOf<double>(bytes);
  Expect(common::FormatFixed2(fraction) == Printed("%.2f", fraction).substr(0, 63),
         "fractions are the C library's");

  const auto seconds = NumberOf<int32_t>(bytes);
  const std::string duration = common::FormatDuration(seconds);
  if (seconds < 0) {
    Expect(duration.empty(), "there is no duration below zero");
    return;
  }
  std::string expected;
  if (seconds >= 3600) expected += Printed("%dh", seconds / 3600);
  if (seconds / 60 % 60 != 0) expected += Printed("%dm", seconds / 60 % 60);
  Expect(duration == expected + Printed("%ds", seconds % 60), "a duration leaves out no minutes");
}

std::string Cut(size_t max_length, const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::string text = common::FormatCut(max_length, format, arguments);
  va_end(arguments);
  return text;
}

void CheckTemplates(const std::string& text) {
  std::string doubled;
  for (const char c : text) doubled += c == '%' ? std::string(2, c) : std::string(1, c);
  Expect(common::ExpandTemplate(doubled) == text, "a percent sign stands for two of them");
  const size_t length = text.size() % common::kMessageUnits;
  Expect(Cut(length, "%s", text.c_str()) == std::string(text.c_str()).substr(0, length),
         "a message is cut at its length");
}

}  // namespace

void Text(std::string_view bytes) {
  const std::string_view first = TakeField(bytes);
  const std::string_view second = TakeField(bytes);
  CheckSplit(first, second);
  CheckTrims(first, second);
  CheckCases(first);
  CheckPaths(std::string(first), std::string(second));
  CheckDecimal(std::string(first));
  CheckTemplates(std::string(first));
  CheckNumbers(bytes);
}

}  // namespace fuzz
