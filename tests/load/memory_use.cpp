#include "load/memory_use.h"

#include <fstream>
#include <stdexcept>
#include <string>

namespace load {
namespace {

// The number behind a name of /proc/self/status.
size_t StatusOf(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    size_t number = 0;
    if (word == name + ":" && status >> number) return number;
  }
  throw std::runtime_error("/proc/self/status has no " + name);
}

}  // namespace

size_t Resident() { return StatusOf("VmRSS") * kKibibyte; }

size_t ThreadCount() { return StatusOf("Threads"); }

}  // namespace load
