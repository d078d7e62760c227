#include <gtest/gtest.h>

#include <filesystem>

#include "support/drive.h"

namespace tests {
namespace {

// A fatal failure while a fixture is made keeps its test from running.
void Refuse(const std::string& folder) { FAIL() << folder << " is there already"; }

}  // namespace

Drive::Drive() : letter_('c') {
  is_free_ = !std::filesystem::exists(Root() + "vantoro_prepare");
  if (!is_free_) Refuse(Root() + "vantoro_prepare");
}

Drive::~Drive() {
  std::error_code ignored;
  if (is_free_) std::filesystem::remove_all(Root() + "vantoro_prepare", ignored);
}

}  // namespace tests
