#include "simulator/model/path_name.h"

#include <algorithm>

#include "simulator/model/unsupported.h"
#include "simulator/model/utf8.h"

namespace simulator {
namespace {

constexpr size_t kLongestName = 255;  // UTF-16 units

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Without the final dots and blanks that the name loses.
std::string_view WithoutTail(std::string_view name, bool is_last) {
  if (is_last) return name.substr(0, name.find_last_not_of(". ") + 1);
  const bool single_dot = name.size() > 1 && name.back() == '.' && name[name.size() - 2] != '.';
  return single_dot ? name.substr(0, name.size() - 1) : name;
}

void AppendNames(std::string_view path, std::vector<std::string>& names) {
  while (!path.empty()) {
    const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
    const std::string_view name = path.substr(0, static_cast<size_t>(end - path.begin()));
    const bool is_last = name.size() == path.size();
    path.remove_prefix(is_last ? path.size() : name.size() + 1);
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (name != ".") {
      const std::string_view kept = WithoutTail(name, is_last);
      if (!kept.empty()) names.emplace_back(kept);
    }
  }
}

size_t LengthOf(const PathName& path) {
  if (path.names.empty()) return 3;
  size_t length = path.ends_in_separator ? 3 : 2;
  for (const std::string& name : path.names) length += 1 + Utf16Length(name);
  return length;
}

}  // namespace

PathName ParsePath(std::string_view path, std::string_view current_directory) {
  PathName parsed;
  if (path.find_first_not_of(' ') == std::string_view::npos) return parsed;
  if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
    Unsupported("the network or device path " + std::string(path));
  }

  parsed.ends_in_separator = IsSeparator(path.back());
  parsed.letter = current_directory.empty() ? '\0' : ToUpper(current_directory.front());
  std::string_view rest = path;
  if (path.size() >= 2 && path[1] == ':') {
    parsed.letter = ToUpper(path[0]);
    rest.remove_prefix(2);
  }
  const bool from_root = !rest.empty() && IsSeparator(rest.front());
  const bool on_current_drive =
      current_directory.size() > 2 && ToUpper(current_directory.front()) == parsed.letter;
  if (!from_root && on_current_drive) AppendNames(current_directory.substr(2), parsed.names);
  AppendNames(rest, parsed.names);
  parsed.length = LengthOf(parsed);
  return parsed;
}

bool IsValidName(std::string_view name) {
  const auto is_refused = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 ||
           std::string_view("\"*/:<>?\\|").find(c) != std::string_view::npos;
  };
  return !name.empty() && Utf16Length(name) <= kLongestName &&
         std::none_of(name.begin(), name.end(), is_refused);
}

std::string NameKey(std::string_view name) {
  std::string key(name);
  std::transform(key.begin(), key.end(), key.begin(), ToLower);
  return key;
}

}  // namespace simulator
