// The text of a descriptor, as the program and as the simulated server read it.
#include <windows.h>

#include "acl/acl_backup.h"
#include "common/strings.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"

namespace fuzz {
namespace {

const simulator::AccountDomains& Domains() {
  static const simulator::AccountDomains domains{{5, {21, 1, 2, 3}},
                                                 simulator::Sid{5, {21, 7, 8, 9}}};
  return domains;
}

bool Has(uint32_t information, uint32_t bits) { return (information & bits) != 0; }

void CheckInformation(uint32_t information) {
  constexpr uint32_t kKnown = simulator::kAllParts | PROTECTED_DACL_SECURITY_INFORMATION |
                              UNPROTECTED_DACL_SECURITY_INFORMATION |
                              PROTECTED_SACL_SECURITY_INFORMATION |
                              UNPROTECTED_SACL_SECURITY_INFORMATION;
  Expect(!Has(information, ~kKnown), "only parts of a descriptor are named");
  const bool is_protected = Has(information, PROTECTED_DACL_SECURITY_INFORMATION);
  const bool is_open = Has(information, UNPROTECTED_DACL_SECURITY_INFORMATION);
  Expect(Has(information, DACL_SECURITY_INFORMATION) == (is_protected != is_open),
         "a list is either protected or not");
  const bool is_sacl_protected = Has(information, PROTECTED_SACL_SECURITY_INFORMATION);
  const bool is_sacl_open = Has(information, UNPROTECTED_SACL_SECURITY_INFORMATION);
  Expect(Has(information, SACL_SECURITY_INFORMATION) == (is_sacl_protected != is_sacl_open),
         "an audit list is either protected or not");
}

// Whatever the server finds in a text in upper case, the program has seen as well.
void CheckAgainst(const simulator::Descriptor& descriptor, uint32_t information) {
  Expect(!descriptor.owner || Has(information, OWNER_SECURITY_INFORMATION), "an owner is seen");
  Expect(!descriptor.group || Has(information, GROUP_SECURITY_INFORMATION), "a group is seen");
  Expect((descriptor.control & SE_DACL_PRESENT) == 0 || Has(information, DACL_SECURITY_INFORMATION),
         "a list is seen");
  Expect((descriptor.control & SE_SACL_PRESENT) == 0 || Has(information, SACL_SECURITY_INFORMATION),
         "an audit list is seen");
}

// What is printed reads as what it was printed from.
void CheckRoundTrips(const simulator::Descriptor& descriptor) {
  const std::string text = simulator::SddlText(descriptor, Domains());
  simulator::Descriptor again;
  Expect(simulator::ParseSddl(text, Domains(), &again) == ERROR_SUCCESS, "printed text is read");
  Expect(again == descriptor, "printed text reads as the same descriptor");
  Expect(simulator::SddlText(again, Domains()) == text, "it is printed the same again");
  Expect(simulator::ReadDescriptor(simulator::DescriptorBytes(descriptor)) == descriptor,
         "bytes read as the same descriptor");
}

}  // namespace

void Sddl(std::string_view bytes) {
  const uint32_t information = acl::SecurityInformationOf(bytes);
  CheckInformation(information);
  simulator::Descriptor descriptor;
  if (simulator::ParseSddl(bytes, Domains(), &descriptor) != ERROR_SUCCESS) return;
  if (common::ToUpperAscii(bytes) == bytes) CheckAgainst(descriptor, information);
  CheckRoundTrips(descriptor);
}

}  // namespace fuzz
