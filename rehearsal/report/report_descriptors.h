// The report of a rehearsal on the security descriptors.
#ifndef REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
#define REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_

#include <cstddef>
#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"

namespace simulator {

struct AccountDomains;

struct DescriptorDifference {
  std::string path;  // with the source's drive letter
  std::string wanted;
  std::string found;  // empty if the file or folder does not exist
};

// Entries of source SACLs that the server's objects lack and that the program cannot write, because
// it never requests them: SACL_SECURITY_INFORMATION does not cover them.
struct LostEntries {
  size_t labels = 0;      // mandatory labels
  size_t attributes = 0;  // resource attributes
  size_t policies = 0;    // ids of central access policies
};

struct DescriptorOutcome {
  size_t objects = 0;  // files and folders that the source server had
  std::vector<DescriptorDifference> differences;
  size_t roots = 0;  // of the objects
  LostEntries lost_entries = {};
};

// Compares the descriptor of each object of the sources, as text, with that of the server's object
// at the same path.
DescriptorOutcome GatherDescriptors(const std::vector<SourceVolume>& sources,
                                    const AccountDomains& domains);

// Returns the line "descriptors: 5,999 of 6,000 equal to the source", followed by the first ten
// differences and the number of further ones. `standard` is what they were compared with. If entries
// were lost, the line continues: "; cannot come back: 1 mandatory label, 2 resource attributes". It
// is "descriptors: nothing to compare" for no objects, and "descriptors: nothing but roots to
// compare" for roots alone that are equal. Lines end with "\n".
std::string DescriptorReport(const DescriptorOutcome& outcome,
                             const std::string& subject = "descriptors",
                             const std::string& standard = "equal to the source");

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
