// The codes with which each call of the platform is made to fail.
#ifndef TESTS_FAULT_SWEEP_FAULT_CODES_H_
#define TESTS_FAULT_SWEEP_FAULT_CODES_H_

#include <cstdint>
#include <string_view>
#include <vector>

namespace fault_sweep {

// A system error code, of the C runtime's calls an errno, of COM's an HRESULT. Those of a call that
// is not listed are what any call may give.
std::vector<uint32_t> CodesOf(std::string_view call);

}  // namespace fault_sweep

#endif  // TESTS_FAULT_SWEEP_FAULT_CODES_H_
