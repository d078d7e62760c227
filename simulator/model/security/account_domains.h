// The account domains of a server.
#ifndef SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_
#define SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_

#include <optional>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// The domains to which SDDL aliases refer: those of the server's own accounts ("LA") and those of
// the server's domain ("DA").
struct AccountDomains {
  Sid machine;                // S-1-5-21-x-y-z
  std::optional<Sid> domain;  // if the server has joined one
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_ACCOUNT_DOMAINS_H_
