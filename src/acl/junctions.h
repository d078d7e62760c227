// The junctions of a volume, from the junction backup file: narrow text, a line for each.
//
//   C:\Link;C:\Target
#ifndef ACL_JUNCTIONS_H_
#define ACL_JUNCTIONS_H_

#include <cstdint>
#include <string>

namespace acl {

// Recreates the junctions that a junction backup file lists. 0, or -1 when it cannot be opened or
// read to its end. Junctions that cannot be made do not change that. `volume_root` is not needed.
[[nodiscard]] int32_t RestoreJunctions(const std::string& volume_root,
                                       const std::string& junction_file_path);

// The same, telling of each junction in a text file at `report_path` unless that is empty; -1 also
// when that file cannot be opened. A junction whose target is missing is left out, a junction that
// stands already is left as it is, a file in its place is deleted. Lines that are not of exactly
// two fields, or of more than 521 characters, are skipped.
[[nodiscard]] int32_t RestoreJunctionsFromFile(const std::wstring& list_path,
                                               const std::wstring& report_path);

// Turns the empty folder `junction_dir` into a junction to `target`, an existing path, or a name of
// the system's own if it begins with "\?". False when that fails.
// https://learn.microsoft.com/windows/win32/fileio/reparse-points
[[nodiscard]] bool CreateJunction(const std::wstring& junction_dir, const std::wstring& target);

}  // namespace acl

#endif  // ACL_JUNCTIONS_H_
