// The ACL restore engine: writes the descriptors of an ACL backup file back onto their objects.
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
inline constexpr int32_t kWriteFailed = 25;          // a descriptor could not be written
inline constexpr int32_t kConvertFailed = 27;        // a descriptor's text makes none
inline constexpr int32_t kNoInputFile = 33;          // no file was named
inline constexpr int32_t kInputFileUnreadable = 34;  // it cannot be opened, or read to its end

// Percents of the run's progress. The caller's.
struct ProgressRange {
  double base;  // where the file starts
  double span;  // what the whole file stands for
};

// One thread at a time.
class ACLUtil {
 public:
  ACLUtil() = default;
  ACLUtil(const ACLUtil&) = delete;
  ACLUtil& operator=(const ACLUtil&) = delete;
  // Disables the privileges that EnablePrivileges enables, whoever enabled them. They stay off for
  // the rest of the process: later objects find `privileges_enabled` set.
  virtual ~ACLUtil();

  // Enables, once in a process, the privileges by which an administrator writes descriptors of
  // objects that deny him access: backup, restore, security, take ownership. One that cannot be
  // enabled is reported and done without. Always 0.
  [[nodiscard]] int32_t EnablePrivileges();

  // Restores every line of the input file: attributes, if they are asked for, then the descriptor.
  // A line that fails is reported and passed over. Unless errors are passed over it ends the run: a
  // descriptor that cannot be converted without a word in the report, one that cannot be written
  // unless the code is ERROR_ACCESS_DENIED or ERROR_FILE_NOT_FOUND. At every thousandth line the
  // progress within `progress` is told to the dialog, as that line's share of `total_entries`;
  // without entries it is not a finite number.
  [[nodiscard]] int32_t RestoreFromFile(bool restore_attributes, uint32_t total_entries,
                                        const ProgressRange& progress);

  // The volume's root, kept with "\\?\" in front.
  void SetObjectPath(const std::string& path);
  const std::string& object_path() const { return object_path_; }

  void SetInputFile(const std::string& path) { input_file_ = path; }
  // Who becomes the owner of what refuses its descriptor, so that it can be tried once more.
  void SetAdminSid(common::UniqueLocal<void> sid) { admin_sid_ = std::move(sid); }
  // Whether a line whose descriptor cannot be converted or written is passed over; true at first.
  void SetContinueOnError(bool continue_on_error) { continue_on_error_ = continue_on_error; }
  // Receives the report, a line for everything that is tried and for what fails; each ends with
  // CR LF and is flushed. None at first.
  void SetOutputStream(common::UniqueFile stream) { output_stream_ = std::move(stream); }

  // Whether EnablePrivileges has run in this process. Cleared by nobody but tests.
  static bool privileges_enabled;

 private:
  int32_t RestoreLine(const AclBackupRecord& record);
  void Report(std::initializer_list<std::string_view> pieces);

  std::string object_path_;
  common::UniqueLocal<void> admin_sid_;
  bool continue_on_error_ = true;
  std::string input_file_;
  common::UniqueFile aux_stream_;  // set by nobody, as the text below
  std::string extra_text_;
  common::UniqueFile output_stream_;
};

}  // namespace acl

#endif  // ACL_ACL_UTIL_H_
