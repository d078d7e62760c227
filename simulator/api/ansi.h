// Text of the program's A calls, which is in the server's ANSI code page. The model has UTF-8.
#ifndef SIMULATOR_API_ANSI_H_
#define SIMULATOR_API_ANSI_H_

#include <string>
#include <string_view>

#include "simulator/api/call.h"
#include "simulator/model/nls/code_page.h"
#include "simulator/model/server.h"

namespace simulator {

inline std::string FromAnsi(const EnteredCall& call, std::string_view ansi) {
  return Utf8FromAnsi(ansi, call.server().system().ansi_code_page);
}

inline std::string ToAnsi(const EnteredCall& call, std::string_view utf8) {
  return AnsiFromUtf8(utf8, call.server().system().ansi_code_page);
}

}  // namespace simulator

#endif  // SIMULATOR_API_ANSI_H_
