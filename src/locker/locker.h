// A mutual-exclusion lock.
#ifndef LOCKER_LOCKER_H_
#define LOCKER_LOCKER_H_

namespace locker {

class Locker {
 public:
  Locker() = default;
  Locker(const Locker&) = delete;
  Locker& operator=(const Locker&) = delete;
  virtual ~Locker() = default;

  // Blocks until the calling thread owns the lock. The lock is recursive.
  virtual void Lock() = 0;
  // Returns false without waiting if another thread owns the lock.
  [[nodiscard]] virtual bool TryLock() = 0;
  virtual void Unlock() = 0;
};

// Owns the lock from construction to destruction.
class LockScope {
 public:
  explicit LockScope(Locker& locker) : locker_(locker) { locker_.Lock(); }
  ~LockScope() { locker_.Unlock(); }
  LockScope(const LockScope&) = delete;
  LockScope& operator=(const LockScope&) = delete;

 private:
  Locker& locker_;
};

}  // namespace locker

#endif  // LOCKER_LOCKER_H_
