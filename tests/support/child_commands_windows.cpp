#ifdef _WIN32
#include "support/child_commands.h"

namespace tests {

void InstallChildCommands() {}

}  // namespace tests
#endif
