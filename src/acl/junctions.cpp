#include "acl/junctions.h"

#include <windows.h>

#include <share.h>
#include <shlwapi.h>
#include <stdio.h>

#include <array>
#include <vector>

#include "acl/reparse_buffer.h"
#include "common/code_page.h"
#include "common/files.h"
#include "common/owner.h"
#include "common/strings.h"

namespace acl {
namespace {

constexpr size_t kLongestLine = 521;

// Reads a line without its line end. Returns an empty text for a line that is too long.
std::string ReadListLine(std::FILE* file) {
  std::string line;
  bool is_too_long = false;
  for (int c = std::fgetc(file); c != EOF && c != '\n'; c = std::fgetc(file)) {
    is_too_long = is_too_long || line.size() == kLongestLine;
    if (!is_too_long) line += static_cast<char>(c);
  }
  // The text after a zero byte is discarded.
  return is_too_long ? std::string() : line.c_str();
}

bool IsJunction(const std::wstring& path) {
  constexpr DWORD kJunction = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kJunction) == kJunction;
}

// Returns the text for the report.
const char* RestoreJunction(const std::string& junction, const std::string& target) {
  if (!common::Exists(target)) return "; Source Not Exist!\n";
  const std::wstring wide_junction = common::NarrowToWide(junction);
  if (::PathFileExistsA(junction.c_str())) {
    // Oddity: file in a junction's place, see docs/oddities.md.
    if (IsJunction(wide_junction)) return "; Junction Exists!\n";
    ::DeleteFileA(junction.c_str());  // does not delete an ordinary folder
  }
  const bool is_new = ::CreateDirectoryA(junction.c_str(), nullptr) != FALSE;
  if (CreateJunction(wide_junction, common::NarrowToWide(target))) return "; Create Done!\n";
  if (is_new) ::RemoveDirectoryA(junction.c_str());
  return "; Create Failed!\n";
}

// Returns the substitute name of a junction to `target`; empty if the target does not exist.
std::wstring SubstituteName(const std::wstring& target) {
  // Oddity: names in junctions, see docs/oddities.md.
  if (target.starts_with(L"\\?")) return target;
  std::array<wchar_t, 1024> full_path{};
  const DWORD length = ::GetFullPathNameW(target.c_str(), static_cast<DWORD>(full_path.size()),
                                          full_path.data(), nullptr);
  if (length == 0 || length >= full_path.size()) return {};
  if (::GetFileAttributesW(full_path.data()) == INVALID_FILE_ATTRIBUTES) return {};
  return L"\\??\\" + std::wstring(full_path.data());
}

}  // namespace

// Oddity: unused values, see docs/oddities.md.
int32_t RestoreJunctions(const std::string& /*volume_root*/,
                         const std::string& junction_file_path) {
  // Oddity: junction failures, see docs/oddities.md.
  return RestoreJunctionsFromFile(common::NarrowToWide(junction_file_path), {});
}

int32_t RestoreJunctionsFromFile(const std::wstring& list_path, const std::wstring& report_path) {
  const common::UniqueFile list(::_wfsopen(list_path.c_str(), L"rt", _SH_DENYNO));
  if (!list) return -1;
  common::UniqueFile report;
  if (!report_path.empty()) {
    report.reset(::_wfsopen(report_path.c_str(), L"wt", _SH_DENYNO));
    if (!report) return -1;
  }

  while (std::feof(list.get()) == 0) {
    std::vector<std::string> fields;
    common::Split(ReadListLine(list.get()), ";", fields);
    if (std::ferror(list.get()) != 0) return -1;
    // Oddity: junction failures, see docs/oddities.md.
    if (fields.size() != 2) continue;
    const std::string& junction = fields[0];
    const std::string& target = fields[1];
    const char* const outcome = RestoreJunction(junction, target);
    if (report) {
      std::fprintf(report.get(), "Source: %s; Junction: %s%s", target.c_str(), junction.c_str(),
                   outcome);
    }
  }
  return 0;
}

bool CreateJunction(const std::wstring& junction_dir, const std::wstring& target) {
  if (junction_dir.empty() || target.empty()) return false;
  const std::wstring substitute_name = SubstituteName(target);
  if (substitute_name.empty()) return false;
  std::vector<unsigned char> buffer = MountPointReparseBuffer(substitute_name);
  if (buffer.empty()) return false;

  const common::UniqueFileHandle folder(
      ::CreateFileW(junction_dir.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!folder) return false;
  DWORD returned = 0;
  return ::DeviceIoControl(folder.get(), FSCTL_SET_REPARSE_POINT, buffer.data(),
                           static_cast<DWORD>(buffer.size()), nullptr, 0, &returned,
                           nullptr) != FALSE;
}

}  // namespace acl
