#include "locker/b_locker.h"

#include <gtest/gtest.h>

#include <thread>
#include <type_traits>

#include "support/host.h"

namespace locker {
namespace {

static_assert(std::is_abstract_v<Locker>);
static_assert(std::has_virtual_destructor_v<Locker>);
static_assert(std::is_base_of_v<Locker, BLocker>);
static_assert(!std::is_copy_constructible_v<BLocker>);

using BLockerTest = tests::HostTest;

// What TryLock says to another thread, which gives the lock back at once.
bool AnotherThreadCanLock(Locker& lock) {
  bool locked = false;
  std::thread([&] {
    locked = lock.TryLock();
    if (locked) lock.Unlock();
  }).join();
  return locked;
}

TEST_F(BLockerTest, IsFreeAtFirst) {
  BLocker lock;
  EXPECT_TRUE(AnotherThreadCanLock(lock));
}

TEST_F(BLockerTest, TryLockIsFalseAtOnceWhileAnotherThreadOwnsTheLock) {
  BLocker lock;
  lock.Lock();
  EXPECT_FALSE(AnotherThreadCanLock(lock));
  lock.Unlock();
}

TEST_F(BLockerTest, TryLockIsTrueForTheThreadThatOwnsTheLock) {
  BLocker lock;
  lock.Lock();
  EXPECT_TRUE(lock.TryLock());
  lock.Unlock();
  lock.Unlock();
}

TEST_F(BLockerTest, TryLockTakesTheLock) {
  BLocker lock;
  ASSERT_TRUE(lock.TryLock());
  EXPECT_FALSE(AnotherThreadCanLock(lock));
  lock.Unlock();
  EXPECT_TRUE(AnotherThreadCanLock(lock));
}

TEST_F(BLockerTest, IsFreeAfterAsManyUnlocksAsLocks) {
  BLocker lock;
  lock.Lock();
  lock.Lock();
  ASSERT_TRUE(lock.TryLock());
  lock.Unlock();
  lock.Unlock();
  EXPECT_FALSE(AnotherThreadCanLock(lock));
  lock.Unlock();
  EXPECT_TRUE(AnotherThreadCanLock(lock));
}

TEST_F(BLockerTest, LockLetsOneThreadInAtATime) {
  constexpr int kRounds = 5'000;
  BLocker lock;
  int count = 0;
  const auto work = [&] {
    for (int i = 0; i < kRounds; ++i) {
      lock.Lock();
      ++count;
      lock.Unlock();
    }
  };
  std::thread other(work);
  work();
  other.join();
  EXPECT_EQ(count, 2 * kRounds);
}

TEST_F(BLockerTest, LockWaitsUntilTheOtherThreadUnlocks) {
  BLocker lock;
  lock.Lock();
  bool is_open = false;
  bool seen = false;
  std::thread other([&] {
    const LockScope scope(lock);
    seen = is_open;
  });
  is_open = true;
  lock.Unlock();
  other.join();
  EXPECT_TRUE(seen);
}

TEST_F(BLockerTest, AScopeOwnsTheLockWhileItLives) {
  BLocker lock;
  {
    const LockScope scope(lock);
    EXPECT_FALSE(AnotherThreadCanLock(lock));
  }
  EXPECT_TRUE(AnotherThreadCanLock(lock));
}

}  // namespace
}  // namespace locker
