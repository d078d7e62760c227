// A change to the descriptor of a file or folder.
#ifndef SIMULATOR_MODEL_SECURITY_SECURITY_CHANGE_H_
#define SIMULATOR_MODEL_SECURITY_SECURITY_CHANGE_H_

#include <windows.h>

#include "simulator/model/security/descriptor.h"

namespace simulator {

// The parameters of SetNamedSecurityInfo. Only the parts that `information` names are used; control
// flags are ignored. A missing list is a NULL list.
struct SecurityChange {
  SECURITY_INFORMATION information = 0;
  Descriptor parts;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SECURITY_CHANGE_H_
