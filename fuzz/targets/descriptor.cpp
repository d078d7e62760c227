// The binary forms of descriptors, lists and SIDs.
#include "simulator/model/security/descriptor.h"

#include "fuzz/expect.h"
#include "fuzz/targets.h"

namespace fuzz {

void Descriptor(std::string_view bytes) {
  if (const auto sid = simulator::ReadSid(bytes)) {
    const std::string written = simulator::SidBytes(*sid);
    Expect(bytes.starts_with(written), "a SID is written as it was read");
  }
  if (const auto list = simulator::ReadAcl(bytes)) {
    Expect(simulator::AclSize(*list) <= simulator::kLargestAcl, "a list that was read fits");
    Expect(simulator::ReadAcl(simulator::AclBytes(*list)) == list, "a list reads as it was");
  }
  if (const auto read = simulator::ReadDescriptor(bytes)) {
    Expect(simulator::ReadDescriptor(simulator::DescriptorBytes(*read)) == read,
           "a descriptor reads as it was");
  }
}

}  // namespace fuzz
