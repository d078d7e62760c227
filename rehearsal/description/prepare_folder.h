// The files that the preparation tool writes to its folder vantoro_prepare on each volume of the
// source server. Lines end with CR LF; drive letters in file names are lower case. The texts are
// UTF-8 here; the files are in the ANSI code page of the server, with '?' for each character that
// it lacks.
#ifndef REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_
#define REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_

#include <string>

#include "simulator/model/files/node.h"

namespace simulator {

struct AccountDomains;

inline constexpr char kPrepareFolder[] = "vantoro_prepare";

// Returns the name of the ACL backup file or junction backup file: "aclbackup_d.dat" for the letter
// D.
std::string AclListName(char letter);
std::string JunctionListName(char letter);

// Returns the ACL backup file: one line `"D:\a.txt",32,"O:BAG:SYD:AI(A;ID;FA;;;BA)"` for the root
// and for everything below it, each folder before its contents. Its text is in the code page.
std::string AclList(char letter, const Node& root, const AccountDomains& domains, UINT code_page);

// Returns the junction backup file: one line `D:\Link;E:\Target` for each junction. Its text is in
// the code page.
std::string JunctionList(char letter, const Node& root, UINT code_page);

// Returns backup_info: the letter, two empty lines and the number of lines of the ACL backup file.
std::string BackupInfo(char letter, const Node& root);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_
