// Security descriptors of simulated files as text.
#ifndef TESTS_SUPPORT_SIMULATED_DESCRIPTORS_H_
#define TESTS_SUPPORT_SIMULATED_DESCRIPTORS_H_

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "simulator/model/sddl_text.h"
#include "simulator/model/server.h"

namespace tests {

// Owner, group and both lists; "none" when nothing lies there.
inline std::string SddlOf(simulator::Server& server, const std::string& path) {
  const std::optional<simulator::Descriptor> descriptor = server.files().DescriptorOf(path);
  if (!descriptor) return "none";
  return simulator::SddlText(*descriptor, server.security().domains());
}

// Puts the descriptor there, whatever the rights.
inline void Secure(simulator::Server& server, const std::string& path, const std::string& sddl) {
  simulator::Descriptor descriptor;
  ASSERT_EQ(simulator::ParseSddl(sddl, server.security().domains(), &descriptor),
            static_cast<DWORD>(ERROR_SUCCESS))
      << sddl;
  server.files().SetDescriptor(path, descriptor);
}

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_DESCRIPTORS_H_
