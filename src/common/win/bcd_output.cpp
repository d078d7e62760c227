#include "common/win/bcd_output.h"

#include "common/strings.h"

namespace common::win {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kDefault = "default";
constexpr std::string_view kLocale = "locale";
constexpr std::string_view kDisplayOrder = "displayorder";
constexpr std::string_view kToolsDisplayOrder = "toolsdisplayorder";

// Returns the lines that are not empty, without leading and trailing spaces.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> pieces;
  Split(text, kLineEnd, pieces);
  std::vector<std::string> lines;
  for (const std::string& piece : pieces) {
    std::string line = TrimSpaces(piece);
    if (!line.empty()) lines.push_back(std::move(line));
  }
  return lines;
}

// Evaluates the locales of the listing in their order.
class Locales {
 public:
  Locales(std::string_view default_locale, BCDBootInfo& info)
      : default_locale_(default_locale), info_(info) {}

  void Take(const std::string& value) {
    // Oddity: last locale wins, see docs/oddities.md.
    if (is_first_) info_.RawLocale = value;
    is_first_ = false;
    if (value.empty()) return;
    if (ToLowerAscii(value) != default_locale_) {
      info_.Locale = value;
    } else if (info_.Locale.empty()) {
      info_.Locale = default_locale_;
    }
  }

 private:
  const std::string_view default_locale_;
  BCDBootInfo& info_;
  bool is_first_ = true;
};

std::string LackOf(std::string_view what) {
  return "WinUtil::GetBCDBootInfo Lack of Content [" + std::string(what) + "].";
}

}  // namespace

std::string GetValueAfterKey(std::string_view line, std::string_view key) {
  const size_t found = line.find(key);
  return found == std::string_view::npos ? "" : TrimSpaces(line.substr(found + key.size()));
}

std::string ParseBootConfiguration(std::string_view text, std::string_view default_locale,
                                   BCDBootInfo& info) {
  // Oddity: positions in the boot listing, see docs/oddities.md.
  Locales locales(default_locale, info);
  for (const std::string& line : Lines(text)) {
    if (line.starts_with(kDefault)) {
      const std::string value = GetValueAfterKey(line, kDefault);
      if (!value.empty()) info.DefaultId = value;
    } else if (line.starts_with(kLocale)) {
      locales.Take(GetValueAfterKey(line, kLocale));
    }
  }
  if (info.DefaultId.empty()) return LackOf(kDefault);
  if (info.Locale.empty()) return LackOf(kLocale);

  // The first occurrence anywhere in the text; it can be the end of "toolsdisplayorder".
  // Oddity: positions in the boot listing, see docs/oddities.md.
  const size_t begin = text.find(kDisplayOrder);
  if (begin == std::string_view::npos) return LackOf(kDisplayOrder);
  const std::string_view section = text.substr(begin + kDisplayOrder.size());
  const size_t end = section.find(kToolsDisplayOrder);
  if (end == std::string_view::npos) return LackOf(kToolsDisplayOrder);

  info.DisplayOrder = Lines(section.substr(0, end));
  if (info.DisplayOrder.empty()) return "WinUtil::GetBCDBootInfo OS Loaders Empty.";
  for (const std::string& identifier : info.DisplayOrder) {
    if (identifier == info.DefaultId) return "";
  }
  return "WinUtil::GetBCDBootInfo Default Not In Display Order.";
}

}  // namespace common::win
