#include "rehearsal/description/scenario_json.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <limits>
#include <set>

#include "rehearsal/description/scenario.h"

namespace simulator {
namespace {

// "LINE:COLUMN" of the byte, both from 1.
std::string LineAndColumn(std::string_view text, size_t byte) {
  const std::string_view before = text.substr(0, std::min(byte, text.size()));
  const size_t line_start = before.rfind('\n') + 1;  // 0 without a line feed
  return std::to_string(1 + std::count(before.begin(), before.end(), '\n')) + ":" +
         std::to_string(1 + before.size() - line_start);
}

// A key as a JSON pointer writes it, on one line.
std::string Escaped(std::string_view key) {
  std::string text;
  for (const char c : key) {
    if (c == '\n' || c == '\r') {
      text += c == '\n' ? "\\n" : "\\r";
    } else if (c == '~') {
      text += "~0";
    } else if (c == '/') {
      text += "~1";
    } else {
      text += c;
    }
  }
  return text;
}

// Watches a document while it is parsed, because the parser keeps only the last of several equal
// keys.
class EqualKeys {
 public:
  // Returns the JSON pointer of a key that its object already has; empty for everything else.
  std::string Find(nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
    using Event = nlohmann::json::parse_event_t;
    switch (event) {
      case Event::object_start:
      case Event::array_start:
        CountElement();
        levels_.push_back({event == Event::array_start});
        break;
      case Event::object_end:
      case Event::array_end:
        levels_.pop_back();
        break;
      case Event::value:
        CountElement();
        break;
      case Event::key:
        levels_.back().step = Escaped(parsed.get_ref<const std::string&>());
        if (!levels_.back().keys.insert(levels_.back().step).second) return Pointer();
        break;
    }
    return "";
  }

 private:
  struct Level {
    bool is_array = false;
    size_t elements = 0;
    std::string step = {};            // the part of the pointer to the present key or element
    std::set<std::string> keys = {};  // of an object
  };

  void CountElement() {
    if (levels_.empty() || !levels_.back().is_array) return;
    levels_.back().step = std::to_string(levels_.back().elements++);
  }

  std::string Pointer() const {
    std::string pointer;
    for (const Level& level : levels_) pointer += "/" + level.step;
    return pointer;
  }

  std::vector<Level> levels_;
};

std::string Quoted(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "\"" : ", \"") + word + "\"";
  return text;
}

}  // namespace

nlohmann::json ParseJsonFile(const std::filesystem::path& file) {
  std::error_code error;
  std::ifstream stream;
  if (std::filesystem::is_regular_file(file, error)) stream.open(file, std::ios::binary);
  if (!stream.is_open()) {
    throw ScenarioError(file.string() + ": expected a scenario file, found none that can be read");
  }
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  EqualKeys keys;
  const auto refuse_equal_keys = [&](int, nlohmann::json::parse_event_t event,
                                     const nlohmann::json& parsed) {
    const std::string pointer = keys.Find(event, parsed);
    if (pointer.empty()) return true;
    throw ScenarioError(file.string() + ": " + pointer + ": expected a key that is given once");
  };
  try {
    return nlohmann::json::parse(text, refuse_equal_keys);
  } catch (const nlohmann::json::parse_error& bad) {
    throw ScenarioError(file.string() + ":" +
                        LineAndColumn(text, bad.byte == 0 ? 0 : bad.byte - 1) + ": expected JSON");
  }
}

std::string JsonPlace::Where() const {
  return file_->string() + (pointer_.empty() ? "" : ": " + pointer_);
}

void JsonPlace::Fail(std::string_view expected) const {
  throw ScenarioError(Where() + ": expected " + std::string(expected));
}

void JsonPlace::AllowKeys(const std::vector<std::string>& keys) const {
  if (!value_->is_object()) Fail("an object");
  for (const auto& [key, value] : value_->items()) {
    if (std::find(keys.begin(), keys.end(), key) != keys.end()) continue;
    JsonPlace(*file_, value, pointer_ + "/" + Escaped(key))
        .Fail("no such key, only " + Quoted(keys));
  }
}

std::optional<JsonPlace> JsonPlace::Find(const std::string& key) const {
  if (!value_->is_object()) Fail("an object");
  const auto found = value_->find(key);
  if (found == value_->end()) return std::nullopt;
  return JsonPlace(*file_, *found, pointer_ + "/" + Escaped(key));
}

JsonPlace JsonPlace::At(const std::string& key) const {
  const std::optional<JsonPlace> found = Find(key);
  if (!found) Fail("the key \"" + key + "\"");
  return *found;
}

std::vector<std::pair<std::string, JsonPlace>> JsonPlace::Members() const {
  if (!value_->is_object()) Fail("an object");
  std::vector<std::pair<std::string, JsonPlace>> members;
  for (const auto& [key, value] : value_->items()) members.emplace_back(key, At(key));
  return members;
}

std::vector<JsonPlace> JsonPlace::Elements() const {
  if (!value_->is_array()) Fail("an array");
  std::vector<JsonPlace> elements;
  for (size_t i = 0; i < value_->size(); ++i) {
    elements.emplace_back(*file_, (*value_)[i], pointer_ + "/" + std::to_string(i));
  }
  return elements;
}

std::string JsonPlace::Text() const {
  if (!value_->is_string()) Fail("a text");
  return value_->get<std::string>();
}

bool JsonPlace::Truth() const {
  if (!value_->is_boolean()) Fail("true or false");
  return value_->get<bool>();
}

int64_t JsonPlace::Number(int64_t low, int64_t high) const {
  const bool fits = value_->is_number_integer() &&
                    (!value_->is_number_unsigned() ||
                     value_->get<uint64_t>() <= uint64_t{std::numeric_limits<int64_t>::max()});
  if (!fits || value_->get<int64_t>() < low || value_->get<int64_t>() > high) {
    Fail("a whole number from " + std::to_string(low) + " to " + std::to_string(high));
  }
  return value_->get<int64_t>();
}

std::string JsonPlace::Line() const {
  std::string text = Text();
  if (text.empty() || text.find_first_of("\r\n") != std::string::npos) {
    Fail("one line of text, not empty");
  }
  return text;
}

uint64_t JsonPlace::Size() const {
  constexpr std::string_view kUnits[] = {" B", " KB", " MB", " GB", " TB"};
  const std::string text = Text();
  uint64_t size = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, size);
  uint64_t factor = 1;
  for (const std::string_view unit : kUnits) {
    if (error == std::errc() && std::string_view(rest, end) == unit &&
        size <= std::numeric_limits<uint64_t>::max() / factor) {
      return size * factor;
    }
    factor *= 1024;
  }
  Fail("a size such as \"127 GB\", in B, KB, MB, GB or TB");
}

char JsonPlace::Letter() const {
  const std::string text = Text();
  const char letter = text.size() == 1 ? text[0] : '\0';
  if (letter >= 'A' && letter <= 'Z') return letter;
  if (letter >= 'a' && letter <= 'z') return static_cast<char>(letter - 'a' + 'A');
  Fail("a drive letter from \"A\" to \"Z\"");
}

}  // namespace simulator
