#include "acl/acl_util.h"

#include <aclapi.h>
#include <share.h>
#include <stdio.h>

#include <array>

#include "acl/absolute_descriptor.h"
#include "common/privileges.h"
#include "restore/messages.h"

namespace acl {
namespace {

constexpr std::array<const char*, 4> kPrivileges = {
    "SeBackupPrivilege", "SeRestorePrivilege", "SeSecurityPrivilege", "SeTakeOwnershipPrivilege"};

// Oddity: long ACL line, see docs/oddities.md.
constexpr int kLineLimit = 8190;  // including the terminator
constexpr size_t kLineBufferSize = 8192;
constexpr uint32_t kLinesPerReport = 1000;

// Oddity: negative codes, see docs/oddities.md.
std::string Signed(DWORD code) { return std::to_string(static_cast<int32_t>(code)); }

// SetNamedSecurityInfoA requires a writable path.
DWORD SetSecurity(std::string& path, SECURITY_INFORMATION information, PSID owner, PSID group,
                  PACL dacl, PACL sacl) {
  return ::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, information, owner, group, dacl,
                                 sacl);
}

}  // namespace

bool ACLUtil::privileges_enabled = false;

ACLUtil::~ACLUtil() {
  // Oddity: privileges after the first volume, see docs/oddities.md.
  for (const char* const name : kPrivileges) {
    static_cast<void>(common::SwitchPrivilege(name, false));
  }
}

int32_t ACLUtil::EnablePrivileges() {
  // Oddity: privileges after the first volume, see docs/oddities.md.
  if (privileges_enabled) return 0;
  for (const char* const name : kPrivileges) {
    if (common::SwitchPrivilege(name, true)) continue;
    Report({"Info: Privilege '", name, "' could not be enabled. This can probably be ignored."});
  }
  privileges_enabled = true;
  return 0;
}

void ACLUtil::SetObjectPath(const std::string& path) {
  constexpr std::string_view kVerbatim = "\\\\?\\";
  object_path_ = path.starts_with(kVerbatim) ? path : std::string(kVerbatim) + path;
}

int32_t ACLUtil::RestoreFromFile(bool restore_attributes, uint32_t total_entries,
                                 const ProgressRange& progress) {
  const int32_t privileges = EnablePrivileges();
  if (privileges != 0) return privileges;
  if (input_file_.empty()) return kNoInputFile;
  // Oddity: ANSI only, see docs/oddities.md.
  if (!common::UniqueFile(::_fsopen(input_file_.c_str(), "rb", _SH_DENYNO))) {
    return kInputFileUnreadable;
  }
  Report({"Input file for restore operation: <", input_file_, "> detected as ANSI."});
  const common::UniqueFile file(::_fsopen(input_file_.c_str(), "rt", _SH_DENYNO));
  if (!file) return kInputFileUnreadable;

  std::array<char, kLineBufferSize> line{};
  for (uint32_t count = 1; std::fgets(line.data(), kLineLimit, file.get()) != nullptr; ++count) {
    if (count % kLinesPerReport == 0) {
      // Oddity: progress without a count, see docs/oddities.md.
      restore::ReportProgress(progress.base + static_cast<double>(count) /
                                                  static_cast<double>(total_entries) *
                                                  progress.span);
    }
    // After a read error the buffer does not contain a complete line.
    if (std::ferror(file.get()) != 0) break;
    const AclBackupRecord record = ParseAclLine(line.data());
    if (restore_attributes && record.Attributes != 0) {
      // Oddity: failures of single files, see docs/oddities.md.
      ::SetFileAttributesA(record.Path.c_str(), static_cast<DWORD>(record.Attributes));
    }
    const int32_t result = RestoreLine(record);
    if (result != kRestored) return result;
  }
  return std::ferror(file.get()) != 0 ? kInputFileUnreadable : kRestored;
}

// Returns kRestored, even if the line failed and is skipped, or the result that ends the run.
int32_t ACLUtil::RestoreLine(const AclBackupRecord& record) {
  Report({"Restoring ACL of: <", record.Path, ">"});
  AbsoluteDescriptor descriptor;
  DWORD error = ERROR_SUCCESS;
  if (!descriptor.Build(record.Sddl, error)) {
    if (!continue_on_error_) return kConvertFailed;
    Report({"ERROR: Restoring ACL of <", record.Path, ">: ", Signed(error)});
    return kRestored;
  }

  const SECURITY_INFORMATION information = SecurityInformationOf(record.Sddl);
  std::string path = record.Path;
  const auto write_all = [&] {
    return SetSecurity(path, information, descriptor.owner(), descriptor.group(), descriptor.dacl(),
                       descriptor.sacl());
  };
  error = write_all();
  if (error == ERROR_SUCCESS) return kRestored;

  // Oddity: first refusal, see docs/oddities.md.
  if (error == ERROR_ACCESS_DENIED && admin_sid_) {
    error =
        SetSecurity(path, OWNER_SECURITY_INFORMATION, admin_sid_.get(), nullptr, nullptr, nullptr);
    if (error == ERROR_SUCCESS) error = write_all();
  }
  Report({"ERROR writing SD to <", record.Path, ">: ", Signed(error)});
  const bool is_passed_over =
      continue_on_error_ || error == ERROR_ACCESS_DENIED || error == ERROR_FILE_NOT_FOUND;
  return is_passed_over ? kRestored : kWriteFailed;
}

void ACLUtil::Report(std::initializer_list<std::string_view> pieces) {
  // Oddity: failures of single files, see docs/oddities.md.
  if (!output_stream_) return;
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  std::fprintf(output_stream_.get(), "%s\r\n", text.c_str());
  std::fflush(output_stream_.get());
}

}  // namespace acl
