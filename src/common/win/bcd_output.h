// Parser for the output of bcdedit. In every language of Windows its keywords are English, except
// the headings and "identifier". Accepts any text of any length. Pure.
#ifndef COMMON_WIN_BCD_OUTPUT_H_
#define COMMON_WIN_BCD_OUTPUT_H_

#include <string>
#include <string_view>
#include <vector>

namespace common::win {

// Texts are as printed, without leading and trailing spaces.
struct BCDBootInfo {
  std::string RawLocale;                  // the first locale: that of the boot manager
  std::string Locale;                     // for a rebuild: the last locale other than "en-us" in
                                          // any case, else the default locale
  std::string DefaultId;                  // the default boot entry
  std::vector<std::string> DisplayOrder;  // the boot entries that are displayed, in order
};

// Returns the text after the first `key`, without leading and trailing spaces; empty if the line
// does not contain `key`. An empty key returns the whole line.
std::string GetValueAfterKey(std::string_view line, std::string_view key);

// Reads the listing into `info`, which must be empty, and checks that every field is present and
// that the default entry is displayed. Returns an empty text on success, otherwise the message to
// log; `info` then contains the fields read so far. `default_locale` is "en-us".
std::string ParseBootConfiguration(std::string_view text, std::string_view default_locale,
                                   BCDBootInfo& info);

}  // namespace common::win

#endif  // COMMON_WIN_BCD_OUTPUT_H_
