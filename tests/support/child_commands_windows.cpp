#include "support/child_commands.h"

namespace tests {

void InstallChildCommands() {}

}  // namespace tests
