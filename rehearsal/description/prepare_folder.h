// The files that the preparation tool leaves on a volume of the source server, in its folder
// vantoro_prepare: lines that end with CR LF, letters of files' names in lower case.
#ifndef REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_
#define REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_

#include <string>

#include "simulator/model/files/node.h"

namespace simulator {

struct AccountDomains;

inline constexpr char kPrepareFolder[] = "vantoro_prepare";

// "aclbackup_d.dat" for the letter D.
std::string AclListName(char letter);
std::string JunctionListName(char letter);

// One line `"D:\a.txt",32,"O:BAG:SYD:AI(A;ID;FA;;;BA)"` for the root and for everything below it,
// folders before what is in them.
std::string AclList(char letter, const Node& root, const AccountDomains& domains);

// One line `D:\Link;E:\Target` for each junction.
std::string JunctionList(char letter, const Node& root);

// The letter, two empty lines, the number of lines of the ACL list.
std::string BackupInfo(char letter, const Node& root);

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_PREPARE_FOLDER_H_
