// Threads, critical sections and the last error of each thread.
#include <windows.h>

#include <atomic>
#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <utility>

#include "common/owner.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

class ThreadContract : public HostTest {
 protected:
  // What `work` gives on a thread of its own. It goes with the thread, which may outlive the
  // answer.
  template <typename Result>
  std::future<Result> Start(std::function<Result()> work) {
    struct Task {
      std::function<Result()> work;
      std::promise<Result> promise;
    };
    auto task = std::make_unique<Task>(Task{std::move(work), {}});
    std::future<Result> result = task->promise.get_future();
    const LPTHREAD_START_ROUTINE run = [](LPVOID parameter) -> DWORD {
      const std::unique_ptr<Task> own(static_cast<Task*>(parameter));
      own->promise.set_value(own->work());
      return 0;
    };
    thread_.reset(::CreateThread(nullptr, 0, run, task.release(), 0, nullptr));
    EXPECT_TRUE(thread_);
    return result;
  }

  common::UniqueHandle thread_;
};

TEST_F(ThreadContract, RunsTheRoutineWithItsParameterOnAThreadOfItsOwn) {
  auto id = Start<std::thread::id>([] { return std::this_thread::get_id(); });
  EXPECT_NE(id.get(), std::this_thread::get_id());
}

TEST_F(ThreadContract, RunsOnWithoutItsHandle) {
  std::promise<void> go;
  auto answer = Start<int>([started = go.get_future().share()] {
    started.wait();
    return 7;
  });
  EXPECT_TRUE(::CloseHandle(thread_.release()));
  go.set_value();
  EXPECT_EQ(answer.get(), 7);
}

TEST_F(ThreadContract, AThreadIsNoProcessAndNoFile) {
  auto answer = Start<int>([] { return 0; });
  DWORD code = 0;
  EXPECT_EQ(ErrorOf([&] { return ::GetExitCodeProcess(thread_.get(), &code); }),
            ERROR_INVALID_HANDLE);
  char byte = 0;
  EXPECT_EQ(ErrorOf([&] { return ::ReadFile(thread_.get(), &byte, 1, &code, nullptr); }),
            ERROR_INVALID_HANDLE);
  answer.get();
}

// Both spin: whatever waits otherwise may set the last error itself.
TEST_F(ThreadContract, EveryThreadHasALastErrorOfItsOwn) {
  std::atomic<int> step = 0;
  auto error = Start<DWORD>([&step] {
    ::SetLastError(ERROR_DISK_FULL);
    step = 1;
    while (step != 2) continue;
    const DWORD kept = ::GetLastError();
    step = 3;
    return kept;
  });
  while (step != 1) continue;
  ::SetLastError(kNobodysError);
  step = 2;
  while (step != 3) continue;
  EXPECT_EQ(::GetLastError(), kNobodysError);
  EXPECT_EQ(error.get(), DWORD{ERROR_DISK_FULL});
}

class CriticalSectionContract : public HostTest {
 protected:
  CriticalSectionContract() { ::InitializeCriticalSection(&section_); }
  ~CriticalSectionContract() override { ::DeleteCriticalSection(&section_); }

  // What another thread finds.
  bool IsFreeElsewhere() {
    return std::async(std::launch::async,
                      [this] {
                        if (!::TryEnterCriticalSection(&section_)) return false;
                        ::LeaveCriticalSection(&section_);
                        return true;
                      })
        .get();
  }

  CRITICAL_SECTION section_;
};

TEST_F(CriticalSectionContract, IsFreeAtFirst) { EXPECT_TRUE(IsFreeElsewhere()); }

TEST_F(CriticalSectionContract, KeepsOthersOut) {
  ::EnterCriticalSection(&section_);
  EXPECT_FALSE(IsFreeElsewhere());
  ::LeaveCriticalSection(&section_);
  EXPECT_TRUE(IsFreeElsewhere());
}

TEST_F(CriticalSectionContract, TryingTakesIt) {
  EXPECT_TRUE(::TryEnterCriticalSection(&section_));
  EXPECT_FALSE(IsFreeElsewhere());
  ::LeaveCriticalSection(&section_);
}

TEST_F(CriticalSectionContract, IsLeftAsOftenAsEntered) {
  ::EnterCriticalSection(&section_);
  ::EnterCriticalSection(&section_);
  EXPECT_TRUE(::TryEnterCriticalSection(&section_));
  ::LeaveCriticalSection(&section_);
  ::LeaveCriticalSection(&section_);
  EXPECT_FALSE(IsFreeElsewhere());
  ::LeaveCriticalSection(&section_);
  EXPECT_TRUE(IsFreeElsewhere());
}

TEST_F(CriticalSectionContract, OrdersWhatThreadsDo) {
  int count = 0;
  const auto add = [this, &count] {
    for (int i = 0; i < 1000; ++i) {
      ::EnterCriticalSection(&section_);
      ++count;
      ::LeaveCriticalSection(&section_);
    }
  };
  std::thread one(add);
  std::thread other(add);
  one.join();
  other.join();
  EXPECT_EQ(count, 2000);
}

TEST_F(CriticalSectionContract, EnteringWaitsForWhoLeaves) {
  bool left = false;
  ::EnterCriticalSection(&section_);
  std::thread other([this, &left] {
    ::EnterCriticalSection(&section_);
    EXPECT_TRUE(left);
    ::LeaveCriticalSection(&section_);
  });
  left = true;
  ::LeaveCriticalSection(&section_);
  other.join();
}

}  // namespace
}  // namespace tests
