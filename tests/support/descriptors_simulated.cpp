#include "support/descriptors_simulated.h"

#include <gtest/gtest.h>

#include <optional>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace tests {

std::string SddlOf(simulator::Server& server, const std::string& path) {
  const std::optional<simulator::Descriptor> descriptor = server.files().DescriptorOf(path);
  if (!descriptor) return "none";
  return simulator::SddlText(*descriptor, server.security().domains());
}

void Secure(simulator::Server& server, const std::string& path, const std::string& sddl) {
  simulator::Descriptor descriptor;
  ASSERT_EQ(simulator::ParseSddl(sddl, server.security().domains(), &descriptor),
            static_cast<DWORD>(ERROR_SUCCESS))
      << sddl;
  server.files().SetDescriptor(path, descriptor);
}

}  // namespace tests
