#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "locker/b_locker.h"
#include "simulator/model/processes/threads.h"
#include "simulator/model/server.h"

namespace locker {
namespace {

TEST(BLocker, DeletesItsCriticalSectionAtItsEnd) {
  simulator::Server server;
  std::unique_ptr<Locker> lock = std::make_unique<BLocker>();
  EXPECT_EQ(server.threads().LiveCriticalSections(), 1);
  lock.reset();
  EXPECT_EQ(server.threads().LiveCriticalSections(), 0);
}

}  // namespace
}  // namespace locker
