// Whose accounts a server knows.
#ifndef SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_
#define SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_

#include <optional>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// What the aliases of a server's own accounts ("LA") and of its domain ("DA") stand for.
struct AccountDomains {
  Sid machine;                // S-1-5-21-x-y-z
  std::optional<Sid> domain;  // of a server that has joined one
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_
