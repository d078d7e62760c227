// The report of a rehearsal on the security descriptors.
#ifndef REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
#define REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"

namespace simulator {

class Server;
struct Descriptor;

struct DescriptorDifference {
  std::string path;  // with the source's drive letter
  std::string wanted;
  std::string found;  // empty if the file or folder does not exist
  // The line of the ACL backup file has another path, because the code page lacks a character.
  bool is_unnamed = false;
};

// Entries of source SACLs that the server's objects lack and that the program cannot write, because
// it never requests them: SACL_SECURITY_INFORMATION does not cover them.
struct LostEntries {
  size_t labels = 0;      // mandatory labels
  size_t attributes = 0;  // resource attributes
  size_t policies = 0;    // ids of central access policies
};

// Adds the entries of `wanted` that `found` lacks; it is null if there is no such object.
void CountLost(const Descriptor& wanted, const Descriptor* found, LostEntries& lost);

struct DescriptorOutcome {
  size_t objects = 0;  // files and folders that the source server had
  std::vector<DescriptorDifference> differences;
  size_t roots = 0;  // of the objects
  LostEntries lost_entries = {};
  UINT code_page = 0;  // the ANSI code page of the server
};

// Returns the number of differences whose path the code page lacks.
size_t CountUnnamed(const DescriptorOutcome& outcome);

// Compares the descriptor of each object of the sources, as text, with that of the server's object
// at the same path.
DescriptorOutcome GatherDescriptors(const std::vector<SourceVolume>& sources, Server& server);

// Returns the line "descriptors: 5,999 of 6,000 equal to the source", followed by the first ten
// differences and the number of further ones. `standard` is what they were compared with. The line
// continues if some cannot be equal: "; cannot come back: 1 mandatory label, 2 resource attributes,
// 3 not in code page 1252". It is "descriptors: nothing to compare" for no objects, and
// "descriptors: nothing but roots to compare" for roots alone that are equal. Lines end with "\n".
std::string DescriptorReport(const DescriptorOutcome& outcome,
                             const std::string& subject = "descriptors",
                             const std::string& standard = "equal to the source");

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
