// The sections of a scripted server's text.
#ifndef FUZZ_SCRIPT_H_
#define FUZZ_SCRIPT_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/numbers.h"
#include "common/strings.h"

namespace fuzz {

// A word that the line does not have is empty; a number that it does not have is 0.
struct Section {
  std::vector<std::string> words;
  std::string body;

  std::string Word(size_t at) const { return at < words.size() ? words[at] : std::string(); }
  int Number(size_t at) const { return common::ReadDecimal(Word(at)); }
};

inline std::vector<Section> SectionsOf(std::string_view script) {
  std::vector<std::string> texts;
  common::Split("\n" + std::string(script), "\n@", texts);
  std::vector<Section> sections;
  for (const std::string& text : texts) {
    const size_t line_end = text.find('\n');
    Section section;
    common::Split(std::string_view(text).substr(0, line_end), " ", section.words);
    if (line_end != std::string::npos) section.body = text.substr(line_end + 1);
    sections.push_back(section);
  }
  return sections;
}

}  // namespace fuzz

#endif  // FUZZ_SCRIPT_H_
