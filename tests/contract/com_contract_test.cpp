// COM's use by a thread, and the task bar's class.
#include <windows.h>

#include <objbase.h>
#include <shobjidl.h>

#include <thread>

#include "support/host.h"

namespace tests {
namespace {

// A thread of its own for each test: COM is initialised for a thread, for good or until its end.
template <typename Test>
void OnFreshThread(Test test) {
  std::thread(test).join();
}

void* const kOldPointer = reinterpret_cast<void*>(UINT_PTR{1});

class ComContract : public HostTest {
 protected:
  static HRESULT Create(REFCLSID class_id, REFIID interface_id, void** object) {
    *object = kOldPointer;
    return ::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, interface_id, object);
  }
};

constexpr GUID kUnknown = {0x12345678, 0x9ABC, 0xDEF0, {1, 2, 3, 4, 5, 6, 7, 8}};

TEST_F(ComContract, IdsAreThoseOfTheTaskBar) {
  constexpr GUID kClass = {
      0x56FDF344, 0xFD6D, 0x11D0, {0x95, 0x8A, 0x00, 0x60, 0x97, 0xC9, 0xA0, 0x90}};
  constexpr GUID kList3 = {
      0xEA1AFB91, 0x9E28, 0x4B86, {0x90, 0xE9, 0x9E, 0x9F, 0x8A, 0x5E, 0xEF, 0xAF}};
  EXPECT_TRUE(CLSID_TaskbarList == kClass);
  EXPECT_TRUE(IID_ITaskbarList3 == kList3);
}

TEST_F(ComContract, AThreadInitialisesItOnceAndThenAgain) {
  OnFreshThread([] {
    EXPECT_EQ(::CoInitialize(nullptr), S_OK);
    EXPECT_EQ(::CoInitialize(nullptr), S_FALSE);
    ::CoUninitialize();
    EXPECT_EQ(::CoInitialize(nullptr), S_FALSE);
    ::CoUninitialize();
    ::CoUninitialize();
    EXPECT_EQ(::CoInitialize(nullptr), S_OK);
    ::CoUninitialize();
  });
}

TEST_F(ComContract, EveryThreadInitialisesItForItself) {
  OnFreshThread([] {
    EXPECT_EQ(::CoInitialize(nullptr), S_OK);
    OnFreshThread([] {
      EXPECT_EQ(::CoInitialize(nullptr), S_OK);
      ::CoUninitialize();
    });
    ::CoUninitialize();
  });
}

TEST_F(ComContract, NothingIsMadeWithoutInitialisation) {
  OnFreshThread([] {
    void* object = nullptr;
    EXPECT_EQ(Create(CLSID_TaskbarList, IID_ITaskbarList3, &object), CO_E_NOTINITIALIZED);
    EXPECT_EQ(object, nullptr);
  });
}

TEST_F(ComContract, NothingIsMadeOfAnUnknownClass) {
  OnFreshThread([] {
    ::CoInitialize(nullptr);
    void* object = nullptr;
    EXPECT_EQ(Create(kUnknown, IID_ITaskbarList3, &object), REGDB_E_CLASSNOTREG);
    EXPECT_EQ(object, nullptr);
    ::CoUninitialize();
  });
}

TEST_F(ComContract, NothingIsMadeOfAnUnknownInterface) {
  OnFreshThread([] {
    ::CoInitialize(nullptr);
    void* object = nullptr;
    EXPECT_EQ(Create(CLSID_TaskbarList, kUnknown, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    ::CoUninitialize();
  });
}

TEST_F(ComContract, TheTaskBarsListIsReleased) {
  OnFreshThread([] {
    ::CoInitialize(nullptr);
    void* object = nullptr;
    ASSERT_EQ(Create(CLSID_TaskbarList, IID_ITaskbarList3, &object), S_OK);
    EXPECT_EQ(static_cast<ITaskbarList3*>(object)->Release(), 0u);
    ::CoUninitialize();
  });
}

}  // namespace
}  // namespace tests
