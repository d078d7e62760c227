// The ACL restore engine: sets the security descriptors and attributes in an ACL backup file.
#ifndef ACL_ACL_UTIL_H_
#define ACL_ACL_UTIL_H_

#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "acl/acl_backup.h"
#include "common/owner.h"

namespace acl {

// Results of the engine.
inline constexpr int32_t kRestored = 0;              // the file was read to its end
inline constexpr int32_t kWriteFailed = 25;          // a descriptor could not be set
inline constexpr int32_t kConvertFailed = 27;        // a descriptor could not be converted
inline constexpr int32_t kNoInputFile = 33;          // the path of the file is empty
inline constexpr int32_t kInputFileUnreadable = 34;  // the file cannot be opened or read to its end

// A part of the run's progress, in percent. Owned by the caller.
struct ProgressRange {
  double base;  // the progress at the start of the file
  double span;  // the share of the whole file
};

// Used by one thread at a time.
class ACLUtil {
 public:
  ACLUtil() = default;
  ACLUtil(const ACLUtil&) = delete;
  ACLUtil& operator=(const ACLUtil&) = delete;
  // Disables the privileges that EnablePrivileges enables, even if another object enabled them.
  // They remain disabled until the process ends, because `privileges_enabled` remains set.
  virtual ~ACLUtil();

  // Enables, once per process, the privileges that allow an administrator to set the descriptor of
  // an object that denies access: backup, restore, security, take ownership. Reports a privilege
  // that cannot be enabled and continues. Always returns 0.
  [[nodiscard]] int32_t EnablePrivileges();

  // Restores every line of the input file: the attributes if `restore_attributes` is true, then the
  // descriptor. Reports a line that fails and skips it. If SetContinueOnError(false) was called,
  // ends the run instead: without a report if the descriptor cannot be converted; if it cannot be
  // set, unless the error is ERROR_ACCESS_DENIED or ERROR_FILE_NOT_FOUND. Posts the progress at
  // every thousandth line, as its fraction of `total_entries`; if that is 0, the progress is
  // infinite.
  [[nodiscard]] int32_t RestoreFromFile(bool restore_attributes, uint32_t total_entries,
                                        const ProgressRange& progress);

  // Stores the volume's root with the prefix "\\?\". The path is not used.
  void SetObjectPath(const std::string& path);
  const std::string& object_path() const { return object_path_; }

  void SetInputFile(const std::string& path) { input_file_ = path; }
  // Sets the fallback owner: if access to an object is denied, it becomes the owner of the object
  // and the descriptor is set again.
  void SetAdminSid(common::UniqueLocal<void> sid) { admin_sid_ = std::move(sid); }
  // Sets whether a line whose descriptor cannot be converted or set is skipped; the default is
  // true.
  void SetContinueOnError(bool continue_on_error) { continue_on_error_ = continue_on_error; }
  // Sets the stream for the report: one line for each attempt and one for each failure, ended with
  // CR LF and flushed. The default is no report.
  void SetOutputStream(common::UniqueFile stream) { output_stream_ = std::move(stream); }

  // True after EnablePrivileges has run in this process. Only tests reset it.
  static bool privileges_enabled;

 private:
  int32_t RestoreLine(const AclBackupRecord& record);
  void Report(std::initializer_list<std::string_view> pieces);

  std::string object_path_;
  common::UniqueLocal<void> admin_sid_;
  bool continue_on_error_ = true;
  std::string input_file_;
  // Oddity: unused values, see docs/oddities.md.
  common::UniqueFile aux_stream_;
  std::string extra_text_;
  common::UniqueFile output_stream_;
};

}  // namespace acl

#endif  // ACL_ACL_UTIL_H_
