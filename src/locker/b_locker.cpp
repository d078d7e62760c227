#include "locker/b_locker.h"

namespace locker {

BLocker::BLocker() { ::InitializeCriticalSection(&critical_section_); }

BLocker::~BLocker() { ::DeleteCriticalSection(&critical_section_); }

void BLocker::Lock() { ::EnterCriticalSection(&critical_section_); }

bool BLocker::TryLock() { return ::TryEnterCriticalSection(&critical_section_) != FALSE; }

void BLocker::Unlock() { ::LeaveCriticalSection(&critical_section_); }

}  // namespace locker
