// Standard output: the simulated console.
#include <windows.h>

#include <stdio.h>

#include "simulator/api/call.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"

namespace {

// Printing fails for nobody and is not traced, but it may well spoil the last error.
ssize_t PrintCookie(void*, const char* text, size_t size) {
  const simulator::PlatformScope scope;
  simulator::Server& server = simulator::Server::Current();
  if (!server.own_process().HasEnded()) server.console().Print({text, size});
  ::SetLastError(simulator::kSpoiltLastError);
  return static_cast<ssize_t>(size);
}

FILE* OpenStandardOutput() {
  FILE* const stream = fopencookie(nullptr, "w", {nullptr, PrintCookie, nullptr, nullptr});
  if (stream == nullptr) simulator::Unsupported("a process without memory for standard output");
  setvbuf(stream, nullptr, _IONBF, 0);
  return stream;
}

}  // namespace

FILE* __acrt_iob_func(unsigned index) {
  if (index != 1) simulator::Unsupported("a standard stream other than standard output");
  // Never closed, as the runtime's own.
  static FILE* const stream = OpenStandardOutput();
  return stream;
}
