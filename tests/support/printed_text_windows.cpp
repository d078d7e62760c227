#include <gtest/gtest.h>

#include <cstdio>

#include "support/printed_text.h"

namespace tests {

PrintedText::PrintedText() { testing::internal::CaptureStdout(); }

PrintedText::~PrintedText() {
  if (is_taken_) return;
  const std::string text = Take();
  // The test's own messages are among it.
  if (testing::Test::HasFailure()) std::fputs(text.c_str(), stdout);
}

std::string PrintedText::Take() {
  is_taken_ = true;
  return testing::internal::GetCapturedStdout().substr(begin_);
}

}  // namespace tests
