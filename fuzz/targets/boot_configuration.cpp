// What bcdedit prints, and a key with its value.
#include <algorithm>
#include <string>

#include "common/win/bcd_output.h"
#include "fuzz/expect.h"
#include "fuzz/fields.h"
#include "fuzz/targets.h"

namespace fuzz {
namespace {

bool IsTrimmed(const std::string& text) {
  return text.empty() || (text.front() != ' ' && text.back() != ' ');
}

bool IsLine(const std::string& text) {
  return !text.empty() && IsTrimmed(text) && text.find("\r\n") == std::string::npos;
}

void ReadListing(std::string_view text) {
  common::win::BCDBootInfo info;
  const std::string failure = common::win::ParseBootConfiguration(text, "en-us", info);
  Expect(IsTrimmed(info.RawLocale) && IsTrimmed(info.Locale) && IsTrimmed(info.DefaultId),
         "values stand without the blanks around them");
  Expect(std::all_of(info.DisplayOrder.begin(), info.DisplayOrder.end(), IsLine),
         "each displayed entry is a line");
  if (!failure.empty()) {
    Expect(failure.starts_with("WinUtil::GetBCDBootInfo "), "a failure says who found it");
    return;
  }
  Expect(!info.Locale.empty(), "a listing to rely on has a locale");
  Expect(std::find(info.DisplayOrder.begin(), info.DisplayOrder.end(), info.DefaultId) !=
             info.DisplayOrder.end(),
         "the default entry of a listing to rely on is displayed");
}

void FindValue(std::string_view line, std::string_view key) {
  const std::string value = common::win::GetValueAfterKey(line, key);
  Expect(IsTrimmed(value), "a value stands without the blanks around it");
  if (line.find(key) == std::string_view::npos) {
    Expect(value.empty(), "there is no value without its key");
  } else {
    Expect(line.substr(line.find(key) + key.size()).find(value) != std::string_view::npos,
           "a value stands behind its key");
  }
}

}  // namespace

void BootConfiguration(std::string_view bytes) {
  ReadListing(bytes);
  const std::string_view line = TakeField(bytes);
  FindValue(line, bytes);
}

}  // namespace fuzz
