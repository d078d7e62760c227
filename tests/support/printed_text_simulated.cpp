#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"
#include "support/printed_text.h"

namespace tests {

PrintedText::PrintedText() : begin_(simulator::Server::Current().console().Text().size()) {}

PrintedText::~PrintedText() = default;

std::string PrintedText::Take() {
  is_taken_ = true;
  return simulator::Server::Current().console().Text().substr(begin_);
}

}  // namespace tests
