// Narrow and wide text, on a simulated server.
#include "common/code_page.h"

#include <string>

#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "simulator/model/server.h"

namespace fuzz {
namespace {

// Any units at all, those that are no characters among them.
std::wstring Units(std::string_view bytes) {
  std::wstring wide;
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto high = static_cast<unsigned char>(bytes[i]);
    const auto low = static_cast<unsigned char>(bytes[i + 1]);
    wide += static_cast<wchar_t>(high << 8 | low);
  }
  return wide;
}

}  // namespace

void CodePage(std::string_view bytes) {
  const simulator::Server server;

  const std::wstring wide = common::NarrowToWide(std::string(bytes));
  Expect(wide.find(L'\0') == std::wstring::npos, "wide text ends before a zero unit");
  const std::string narrow = common::WideToNarrow(wide);
  Expect(common::NarrowToWide(narrow) == wide, "wide text comes back");

  const std::string converted = common::WideToNarrow(Units(bytes));
  Expect(converted.find('\0') == std::string::npos, "narrow text ends before a zero byte");
  Expect(common::WideToNarrow(common::NarrowToWide(converted)) == converted,
         "narrow text of characters comes back");
}

}  // namespace fuzz
