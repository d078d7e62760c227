#include "simulator/model/common/unsupported.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace simulator {

void Unsupported(std::string_view what) {
  const std::string line = "simulator: unsupported: " + std::string(what) + "\n";
  std::fputs(line.c_str(), stderr);
  std::abort();
}

}  // namespace simulator
