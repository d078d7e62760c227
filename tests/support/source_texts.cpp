#include "support/source_texts.h"

#include <algorithm>
#include <cctype>

namespace tests {
namespace {

constexpr size_t kNone = std::string_view::npos;

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end == kNone ? text.size() : end + 1);
  }
  return lines;
}

// Reads a literal whose quotation mark stands at `at`, and moves `at` behind its end.
std::string TakeLiteral(std::string_view source, size_t& at) {
  const char quote = source[at++];
  std::string text;
  for (; at < source.size() && source[at] != quote; ++at) {
    if (source[at] != '\\' || at + 1 == source.size()) {
      text += source[at];
      continue;
    }
    const char escaped = source[++at];
    constexpr std::string_view kNames = "nrtvf";
    constexpr std::string_view kControls = "\n\r\t\v\f";
    const size_t name = kNames.find(escaped);
    text += name == kNone ? escaped : kControls[name];
  }
  ++at;
  return text;
}

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == kNone; }

size_t SkipComment(std::string_view source, size_t at) {
  const bool is_block = source[at + 1] == '*';
  const size_t end = source.find(is_block ? "*/" : "\n", at + 2);
  if (end == kNone) return source.size();
  return is_block ? end + 2 : end;
}

// The end of a conversion that begins at `at`, which is its '%'.
size_t ConversionEnd(std::string_view message, size_t at) {
  const size_t end = message.find_first_not_of("0123456789.+-# lhzw", at + 1);
  return end == kNone ? message.size() : end + 1;
}

}  // namespace

std::vector<SourceText> SourceTexts(std::string_view source) {
  std::vector<SourceText> texts;
  std::string line;        // the code of the line so far
  std::string above;       // that of the last line that had any
  bool continues = false;  // nothing but white space since the last literal
  for (size_t at = 0; at < source.size();) {
    const char c = source[at];
    if (c == '/' && at + 1 < source.size() && (source[at + 1] == '/' || source[at + 1] == '*')) {
      at = SkipComment(source, at);
    } else if (c == '\'' &&
               (at == 0 || std::isalnum(static_cast<unsigned char>(source[at - 1])) == 0)) {
      TakeLiteral(source, at);
      continues = false;
    } else if (c == '"' && !line.starts_with("#include")) {
      const std::string text = TakeLiteral(source, at);
      if (continues) {
        texts.back().text += text;
      } else {
        texts.push_back({text, IsBlank(line) ? above : line});
      }
      continues = true;
    } else {
      if (c == '\n') {
        if (!IsBlank(line)) above = line;
        line.clear();
      } else {
        line += c;
        continues = continues && IsBlank({&c, 1});
      }
      ++at;
    }
  }
  return texts;
}

std::vector<std::string> ResourceTexts(std::string_view script) {
  std::vector<std::string> texts;
  for (std::string_view line : Lines(script)) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    for (const std::string_view kind : {"CAPTION ", "LTEXT ", "PUSHBUTTON ", "IDS_"}) {
      const size_t quote = line.find('"');
      if (!line.starts_with(kind) || quote == kNone) continue;
      size_t at = quote;
      texts.push_back(TakeLiteral(line, at));
    }
  }
  return texts;
}

std::string InThePage(std::string_view message) {
  std::string text;
  for (size_t at = 0; at < message.size();) {
    if (message[at] != '%') {
      text += message[at++];
    } else {
      at = ConversionEnd(message, at);
      text += "\u2026";
    }
  }
  text.resize(text.find_last_not_of("\r\n") + 1);
  return text;
}

std::vector<std::string> CodeSpans(std::string_view markdown) {
  std::vector<std::string> spans;
  for (const std::string_view line : Lines(markdown)) {
    for (size_t at = line.find('`'); at != kNone; at = line.find('`', at)) {
      const size_t end = line.find('`', at + 1);
      if (end == kNone) break;
      spans.emplace_back(line.substr(at + 1, end - at - 1));
      at = end + 1;
    }
  }
  return spans;
}

}  // namespace tests
