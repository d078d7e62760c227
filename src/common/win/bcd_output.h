// What bcdedit prints about the boot configuration store. Whatever the language its keywords are
// English, except the headings and "identifier". Any text of any length may come in. Pure.
#ifndef COMMON_WIN_BCD_OUTPUT_H_
#define COMMON_WIN_BCD_OUTPUT_H_

#include <string>
#include <string_view>
#include <vector>

namespace common::win {

// Texts are as they were printed, without the blanks around them.
struct BCDBootInfo {
  std::string RawLocale;                  // of the first entry that has one: the boot manager's
  std::string Locale;                     // for a rebuild: the last one that is not "en-us" in any
                                          // case, else the default locale
  std::string DefaultId;                  // the default entry
  std::vector<std::string> DisplayOrder;  // the entries that the boot manager offers, in order
};

// What stands behind the first `key`, without the blanks around it; empty when there is no key. An
// empty key stands before the whole line.
std::string GetValueAfterKey(std::string_view line, std::string_view key);

// Reads the listing into `info`, which comes in empty, and checks that it can be relied on: every
// fact is there, and the default entry is among those displayed. Returns what to log when it is
// not, with what was read until then in `info`; else empty text. `default_locale` is "en-us".
std::string ParseBootConfiguration(std::string_view text, std::string_view default_locale,
                                   BCDBootInfo& info);

}  // namespace common::win

#endif  // COMMON_WIN_BCD_OUTPUT_H_
