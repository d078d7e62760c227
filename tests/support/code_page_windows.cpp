#include "support/code_page.h"

namespace tests {

UINT NamedCodePage(UINT code_page) { return code_page; }

bool UseAnsiCodePage(UINT code_page) { return ::GetACP() == code_page; }

}  // namespace tests
