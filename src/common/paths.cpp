#include "common/paths.h"

namespace common {

std::string JoinPath(const std::string& folder, const std::string& name) {
  if (folder.empty() || name.empty()) return {};
  std::string path = folder;
  // Oddity: last byte of a folder, see docs/oddities.md.
  if (path.back() != '\\') path += '\\';
  path += name;
  return path;
}

std::string JoinDir(const std::string& folder, const std::string& name) {
  std::string path = JoinPath(folder, name);
  if (!path.empty() && path.back() != '\\') path += '\\';
  return path;
}

}  // namespace common
