#include "simulator/model/common/path_name.h"

#include <algorithm>

#include "simulator/model/common/utf8.h"

namespace simulator {
namespace {

constexpr size_t kLongestName = 255;            // UTF-16 units
constexpr size_t kLongestVerbatimPath = 32767;  // UTF-16 units

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Without the final dots and blanks that the name loses.
std::string_view WithoutTail(std::string_view name, bool is_last) {
  if (is_last) return name.substr(0, name.find_last_not_of(". ") + 1);
  const bool single_dot = name.size() > 1 && name.back() == '.' && name[name.size() - 2] != '.';
  return single_dot ? name.substr(0, name.size() - 1) : name;
}

// Names from `floor` on may be taken back by "..". Whether the path ends in a separator, be it one
// before a name that is nothing but dots and blanks.
bool AppendNames(std::string_view path, size_t floor, std::vector<std::string>& names) {
  bool ends_in_separator = !path.empty() && IsSeparator(path.back());
  while (!path.empty()) {
    const auto end = std::find_if(path.begin(), path.end(), IsSeparator);
    const std::string_view name = path.substr(0, static_cast<size_t>(end - path.begin()));
    const bool is_last = name.size() == path.size();
    path.remove_prefix(is_last ? path.size() : name.size() + 1);
    if (name == "..") {
      if (names.size() > floor) names.pop_back();
    } else if (name != ".") {
      const std::string_view kept = WithoutTail(name, is_last);
      if (!kept.empty()) names.emplace_back(kept);
      if (is_last && kept.empty()) ends_in_separator = true;
    }
  }
  return ends_in_separator;
}

size_t LengthOf(const PathName& path) {
  if (path.names.empty()) return 3;
  size_t length = path.ends_in_separator ? 3 : 2;
  for (const std::string& name : path.names) length += 1 + Utf16Length(name);
  return length;
}

bool HasDrive(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

bool IsNetworkOrDevice(std::string_view path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]);
}

// "\\.\" and "\\?\", whichever separators they are written with.
bool IsDevice(std::string_view path) {
  return IsNetworkOrDevice(path) && path.size() >= 3 && (path[2] == '.' || path[2] == '?') &&
         (path.size() == 3 || IsSeparator(path[3]));
}

PathName Refused(std::string_view path, DWORD error) {
  PathName refused;
  refused.error = error;
  refused.length = Utf16Length(path);
  return refused;
}

// Behind "\\?\" or "\??\".
PathName ParseVerbatim(std::string_view path) {
  if (Utf16Length(path) > kLongestVerbatimPath) return Refused(path, ERROR_FILENAME_EXCED_RANGE);
  if (path.empty()) return Refused(path, ERROR_INVALID_NAME);
  const size_t root = path.find('\\');
  if (NameKey(path.substr(0, root)) == "unc") return Refused(path, ERROR_BAD_NETPATH);
  if (!HasDrive(path) || (root != 2 && path.size() != 2)) {
    return Refused(path,
                   root == std::string_view::npos ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND);
  }
  // The device itself, not the folder that its file system begins with.
  if (root != 2) return Refused(path, ERROR_INVALID_PARAMETER);

  PathName parsed;
  parsed.verbatim = true;
  parsed.letter = ToUpper(path[0]);
  parsed.length = Utf16Length(path);
  std::string_view rest = path.substr(3);
  parsed.ends_in_separator = rest.empty() || rest.back() == '\\';
  if (!rest.empty() && parsed.ends_in_separator) rest.remove_suffix(1);
  while (!rest.empty()) {
    const size_t end = std::min(rest.find('\\'), rest.size());
    parsed.names.emplace_back(rest.substr(0, end));
    // A separator at the end of what is left stands before an empty name, which no file has.
    if (end + 1 == rest.size()) parsed.names.emplace_back();
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return parsed;
}

PathName ParseNetworkOrDevice(std::string_view path) {
  if (path.starts_with("\\\\?\\")) return ParseVerbatim(path.substr(4));
  std::vector<std::string> names;
  if (IsDevice(path)) {
    AppendNames(path.substr(3), 0, names);
    return Refused(path, names.size() > 1 ? ERROR_PATH_NOT_FOUND : ERROR_FILE_NOT_FOUND);
  }
  AppendNames(path, 0, names);
  return Refused(path, names.size() > 1 ? ERROR_BAD_NETPATH : ERROR_BAD_PATHNAME);
}

std::string Joined(std::string full, const std::vector<std::string>& names,
                   bool ends_in_separator) {
  for (const std::string& name : names) {
    if (!full.ends_with('\\')) full += '\\';
    full += name;
  }
  if (ends_in_separator && !full.ends_with('\\')) full += '\\';
  return full;
}

}  // namespace

PathName ParsePath(std::string_view path, std::string_view current_directory) {
  PathName parsed;
  if (path.find_first_not_of(' ') == std::string_view::npos) return parsed;
  if (path.starts_with(kNtPrefix)) return ParseNtPath(path);
  if (IsNetworkOrDevice(path)) return ParseNetworkOrDevice(path);

  parsed.letter = current_directory.empty() ? '\0' : ToUpper(current_directory.front());
  std::string_view rest = path;
  if (HasDrive(path)) {
    parsed.letter = ToUpper(path[0]);
    rest.remove_prefix(2);
  }
  const bool from_root = !rest.empty() && IsSeparator(rest.front());
  const bool on_current_drive =
      current_directory.size() > 2 && ToUpper(current_directory.front()) == parsed.letter;
  if (!from_root && on_current_drive) AppendNames(current_directory.substr(2), 0, parsed.names);
  parsed.ends_in_separator = AppendNames(rest, 0, parsed.names);
  parsed.length = LengthOf(parsed);
  return parsed;
}

std::vector<std::string> NamesBelowRoot(std::string_view path) {
  return ParsePath("\\" + std::string(path), "C:\\").names;
}

PathName ParseNtPath(std::string_view path) {
  if (!path.starts_with(kNtPrefix)) return Refused(path, ERROR_INVALID_REPARSE_DATA);
  return ParseVerbatim(path.substr(kNtPrefix.size()));
}

std::string FullPathName(std::string_view path, std::string_view current_directory) {
  if (path.find_first_not_of(' ') == std::string_view::npos) return "";
  std::vector<std::string> names;
  if (IsDevice(path)) {
    const bool ends_in_separator = AppendNames(path.substr(3), 0, names);
    const char mark = path.size() == 3 ? '.' : path[2];
    return Joined({'\\', '\\', mark, '\\'}, names, ends_in_separator);
  }
  if (IsNetworkOrDevice(path)) {
    const bool ends_in_separator = AppendNames(path.substr(2), 2, names);
    return Joined("\\\\", names, ends_in_separator);
  }
  // As a path of the drive alone, so that a path that begins with "\??\" is one, too.
  const std::string root =
      HasDrive(path) ? std::string(path.substr(0, 2)) : std::string(current_directory.substr(0, 2));
  const std::string_view below = HasDrive(path) ? path.substr(2) : path;
  const PathName parsed = ParsePath(root + std::string(below), current_directory);
  return Joined(root, parsed.names, parsed.ends_in_separator || parsed.names.empty());
}

bool IsValidName(std::string_view name) {
  const auto is_refused = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 ||
           std::string_view("\"*/:<>?\\|").find(c) != std::string_view::npos;
  };
  return !name.empty() && name != "." && name != ".." && Utf16Length(name) <= kLongestName &&
         std::none_of(name.begin(), name.end(), is_refused);
}

std::string NameKey(std::string_view name) {
  std::string key(name);
  std::transform(key.begin(), key.end(), key.begin(), ToLower);
  return key;
}

bool IsNameBefore(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(ToLower(x)) < static_cast<unsigned char>(ToLower(y));
  });
}

}  // namespace simulator
