#include "simulator/model/nls/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <optional>

#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"

namespace simulator {
namespace {

constexpr wchar_t kFirstBeyondAscii = 0x80;
constexpr wchar_t kLastControl = 0x9F;
constexpr wchar_t kFirstPair = 0x10000;  // what takes two units of UTF-16 begins here

struct CodePages {
  UINT ansi;
  UINT oem;
};

struct LanguageCodePages {
  WORD language;  // primary language, the low bits of a LANGID
  CodePages pages;
};

constexpr CodePages kWestern = {1252, 850};
constexpr CodePages kCentral = {1250, 852};
constexpr CodePages kCyrillic = {1251, 866};

constexpr LanguageCodePages kLanguages[] = {
    {0x02, kCyrillic},    // Bulgarian
    {0x05, kCentral},     // Czech
    {0x08, {1253, 737}},  // Greek
    {0x09, {1252, 437}},  // English
    {0x0E, kCentral},     // Hungarian
    {0x11, {932, 932}},   // Japanese
    {0x12, {949, 949}},   // Korean
    {0x15, kCentral},     // Polish
    {0x18, kCentral},     // Romanian
    {0x19, kCyrillic},    // Russian
    {0x1A, kCentral},     // Croatian
    {0x1B, kCentral},     // Slovak
    {0x1E, {874, 874}},   // Thai
    {0x1F, {1254, 857}},  // Turkish
    {0x22, kCyrillic},    // Ukrainian
    {0x24, kCentral},     // Slovenian
    {0x25, {1257, 775}},  // Estonian
    {0x26, {1257, 775}},  // Latvian
    {0x27, {1257, 775}},  // Lithuanian
};

CodePages CodePagesOf(LANGID language) {
  constexpr WORD kPrimary = 0x3FF;
  constexpr WORD kChinese = 0x04;
  constexpr LANGID kChina = 0x0804;
  constexpr LANGID kSingapore = 0x1004;
  if ((language & kPrimary) == kChinese) {
    const UINT page = language == kChina || language == kSingapore ? 936 : 950;
    return {page, page};
  }
  const auto* const found = std::find_if(
      std::begin(kLanguages), std::end(kLanguages),
      [language](const auto& known) { return known.language == (language & kPrimary); });
  return found == std::end(kLanguages) ? kWestern : found->pages;
}

// A converter of the C library. It knows fewer characters than Windows, and no wrong ones.
class Converter {
 public:
  Converter(const std::string& from, const std::string& to)
      : converter_(::iconv_open(to.c_str(), from.c_str())) {
    if (converter_ == reinterpret_cast<iconv_t>(-1))
      Unsupported("the conversion from " + from + " to " + to);
  }
  ~Converter() { ::iconv_close(converter_); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;

  // Nothing for what is not one whole character of both.
  std::optional<std::string> operator()(std::string_view character) const {
    char in[sizeof(wchar_t)];
    char out[2 * sizeof(wchar_t)];
    size_t in_left = character.copy(in, sizeof in);
    size_t out_left = sizeof out;
    char* in_next = in;
    char* out_next = out;
    ::iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    if (::iconv(converter_, &in_next, &in_left, &out_next, &out_left) != 0 ||
        ::iconv(converter_, nullptr, nullptr, &out_next, &out_left) != 0) {
      return std::nullopt;
    }
    return std::string(out, sizeof out - out_left);
  }

 private:
  const iconv_t converter_;
};

// Not shared by threads, because a converter has a state while it converts.
struct Converters {
  explicit Converters(UINT code_page)
      : to_wide("CP" + std::to_string(code_page), "WCHAR_T"),
        from_wide("WCHAR_T", "CP" + std::to_string(code_page)) {}

  const Converter to_wide;
  const Converter from_wide;
};

const Converters& ConvertersOf(UINT code_page) {
  thread_local std::map<UINT, std::unique_ptr<Converters>> all;
  std::unique_ptr<Converters>& found = all[code_page];
  if (!found) found = std::make_unique<Converters>(code_page);
  return *found;
}

template <typename Text>
bool IsAscii(const Text& text) {
  return std::all_of(text.begin(), text.end(), [](auto unit) {
    return unit >= 0 && static_cast<wchar_t>(unit) < kFirstBeyondAscii;
  });
}

// Takes one character off the front.
wchar_t TakeCharacter(std::string_view& ansi, UINT code_page) {
  const wchar_t byte = static_cast<unsigned char>(ansi.front());
  const size_t size = ansi.size() > 1 && IsLeadByte(ansi.front(), code_page) ? 2 : 1;
  const std::string_view character = ansi.substr(0, size);
  ansi.remove_prefix(size);
  if (byte < kFirstBeyondAscii) return byte;
  const std::optional<std::string> wide = ConvertersOf(code_page).to_wide(character);
  if (wide && wide->size() == sizeof(wchar_t)) {
    wchar_t converted = 0;
    wide->copy(reinterpret_cast<char*>(&converted), sizeof converted);
    return converted;
  }
  if (size == 1 && byte <= kLastControl && !IsLeadByte(character.front(), code_page)) return byte;
  constexpr UINT kJapanese = 932;
  constexpr wchar_t kMiddleDot = 0x30FB;
  return size == 2 && code_page == kJapanese ? kMiddleDot : L'?';
}

void AppendCharacter(wchar_t character, UINT code_page, std::string& ansi) {
  if (character >= 0 && character < kFirstBeyondAscii) {
    ansi += static_cast<char>(character);
    return;
  }
  const std::string_view bytes(reinterpret_cast<const char*>(&character), sizeof character);
  std::string converted = ConvertersOf(code_page).from_wide(bytes).value_or("");
  if (converted.empty() && character > 0 && character <= kLastControl) {
    converted = static_cast<char>(character);
  }
  // Windows knows the character only if it comes back.
  std::string_view rest = converted;
  const bool is_known =
      !rest.empty() && TakeCharacter(rest, code_page) == character && rest.empty();
  ansi += is_known ? converted : character < kFirstPair ? "?" : "??";
}

}  // namespace

UINT AnsiCodePageOf(LANGID language) { return CodePagesOf(language).ansi; }

UINT OemCodePageOf(LANGID language) { return CodePagesOf(language).oem; }

std::wstring WideFromAnsi(std::string_view ansi, UINT code_page) {
  if (IsAscii(ansi)) return {ansi.begin(), ansi.end()};
  if (code_page == kUtf8CodePage) return WideFromUtf8(ansi);
  std::wstring wide;
  while (!ansi.empty()) wide += TakeCharacter(ansi, code_page);
  return wide;
}

std::string AnsiFromWide(std::wstring_view wide, UINT code_page) {
  if (code_page == kUtf8CodePage) return Utf8FromWide(wide);
  std::string ansi;
  ansi.reserve(wide.size());
  for (const wchar_t character : wide) AppendCharacter(character, code_page, ansi);
  return ansi;
}

std::string Utf8FromAnsi(std::string_view ansi, UINT code_page) {
  if (code_page == kUtf8CodePage || IsAscii(ansi)) return std::string(ansi);
  return Utf8FromWide(WideFromAnsi(ansi, code_page));
}

std::string AnsiFromUtf8(std::string_view utf8, UINT code_page) {
  if (code_page == kUtf8CodePage || IsAscii(utf8)) return std::string(utf8);
  return AnsiFromWide(WideFromUtf8(utf8), code_page);
}

bool IsInCodePage(std::string_view utf8, UINT code_page) {
  return Utf8FromAnsi(AnsiFromUtf8(utf8, code_page), code_page) == utf8;
}

bool IsLeadByte(char byte, UINT code_page) {
  const auto value = static_cast<unsigned char>(byte);
  switch (code_page) {
    case 932:
      return (value >= 0x81 && value <= 0x9F) || (value >= 0xE0 && value <= 0xFC);
    case 936:
    case 949:
    case 950:
      return value >= 0x81 && value <= 0xFE;
    default:
      return false;
  }
}

size_t WholeCharacters(std::string_view ansi, size_t longest, UINT code_page) {
  if (ansi.size() <= longest) return ansi.size();
  size_t end = 0;
  if (code_page == kUtf8CodePage) {
    end = longest;
    while (end > 0 && (static_cast<unsigned char>(ansi[end]) & 0xC0) == 0x80) --end;
    return end;
  }
  for (;;) {
    const size_t next = end + (IsLeadByte(ansi[end], code_page) ? 2 : 1);
    if (next > longest) return end;
    end = next;
  }
}

}  // namespace simulator
