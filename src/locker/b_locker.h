// The implementation of Locker with a critical section.
#ifndef LOCKER_B_LOCKER_H_
#define LOCKER_B_LOCKER_H_

#include <windows.h>

#include "locker/locker.h"

namespace locker {

class BLocker : public Locker {
 public:
  BLocker();
  ~BLocker() override;

  void Lock() override;
  [[nodiscard]] bool TryLock() override;
  void Unlock() override;

 private:
  CRITICAL_SECTION critical_section_;
};

}  // namespace locker

#endif  // LOCKER_B_LOCKER_H_
