#include "simulator/model/processes/platform_scope.h"

#include <utility>

namespace simulator {
namespace {

thread_local bool is_in_platform_call = false;

}  // namespace

bool IsInPlatformCall() { return is_in_platform_call; }

PlatformScope::PlatformScope(bool is_in_call)
    : was_in_call_(std::exchange(is_in_platform_call, is_in_call)) {}

PlatformScope::~PlatformScope() { is_in_platform_call = was_in_call_; }

}  // namespace simulator
