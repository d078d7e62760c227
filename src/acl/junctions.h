// The junctions of a volume, from the junction backup file: ANSI text, one line per junction.
//
//   C:\Link;C:\Target
#ifndef ACL_JUNCTIONS_H_
#define ACL_JUNCTIONS_H_

#include <cstdint>
#include <string>

namespace acl {

// Recreates the junctions in a junction backup file. Returns 0, or -1 if the file cannot be opened
// or read to its end. Junctions that cannot be created do not change the result. `volume_root` is
// not used.
[[nodiscard]] int32_t RestoreJunctions(const std::string& volume_root,
                                       const std::string& junction_file_path);

// Like RestoreJunctions, and writes one line per junction to a text file at `report_path` unless
// that is empty; also returns -1 if that file cannot be opened. A junction whose target does not
// exist is not created, an existing junction is unchanged, a file of that name is deleted. Lines
// without exactly two fields and lines of more than 521 characters are skipped.
[[nodiscard]] int32_t RestoreJunctionsFromFile(const std::wstring& list_path,
                                               const std::wstring& report_path);

// Converts the empty folder `junction_dir` to a junction to `target`, which is an existing path or,
// if it begins with "\?", a substitute name. Returns false on failure.
// https://learn.microsoft.com/windows/win32/fileio/reparse-points
[[nodiscard]] bool CreateJunction(const std::wstring& junction_dir, const std::wstring& target);

}  // namespace acl

#endif  // ACL_JUNCTIONS_H_
