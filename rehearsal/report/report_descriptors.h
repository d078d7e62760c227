// What a rehearsal tells about the security descriptors.
#ifndef REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
#define REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_

#include <cstddef>
#include <string>
#include <vector>

#include "rehearsal/description/source_tree.h"

namespace simulator {

struct AccountDomains;

struct DescriptorDifference {
  std::string path;  // with the letter of the source
  std::string wanted;
  std::string found;  // empty when there is no such file or folder
};

struct DescriptorOutcome {
  size_t objects = 0;  // files and folders that the source server had
  std::vector<DescriptorDifference> differences;
};

// Compares each object of the sources with the server's at the same place, as text.
DescriptorOutcome GatherDescriptors(const std::vector<SourceVolume>& sources,
                                    const AccountDomains& domains);

// "descriptors: 5,999 of 6,000 equal to the source", then the first ten differences and how many
// there are more. Lines end with "\n".
std::string DescriptorReport(const DescriptorOutcome& outcome);

}  // namespace simulator

#endif  // REHEARSAL_REPORT_REPORT_DESCRIPTORS_H_
