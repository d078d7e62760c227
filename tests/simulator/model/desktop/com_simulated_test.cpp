#include <windows.h>

#include <gtest/gtest.h>
#include <objbase.h>
#include <shobjidl.h>

#include <string>
#include <thread>
#include <vector>

#include "simulator/model/desktop/com.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/server.h"

namespace {

using simulator::Server;
using simulator::TaskbarProgress;

constexpr CLSID kOtherClass = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};

class ComTest : public testing::Test {
 protected:
  static HRESULT Create(ITaskbarList3** list, REFCLSID class_id = CLSID_TaskbarList,
                        REFIID interface_id = IID_ITaskbarList3) {
    return ::CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, interface_id,
                              reinterpret_cast<void**>(list));
  }

  // Initialises COM, too; null when that or the making fails.
  static ITaskbarList3* MakeList() {
    ITaskbarList3* list = nullptr;
    EXPECT_GE(::CoInitialize(nullptr), 0);
    EXPECT_EQ(Create(&list), S_OK);
    return list;
  }

  Server server_;
};

TEST_F(ComTest, IsInitialisedOnceAndThenAgain) {
  EXPECT_EQ(::CoInitialize(nullptr), S_OK);
  EXPECT_EQ(::CoInitialize(nullptr), S_FALSE);
  EXPECT_EQ(server_.com().Uses(), 2);
  ::CoUninitialize();
  ::CoUninitialize();
  EXPECT_EQ(server_.com().Uses(), 0);
  EXPECT_EQ(::CoInitialize(nullptr), S_OK);
}

TEST_F(ComTest, IsInitialisedForOneThread) {
  EXPECT_EQ(::CoInitialize(nullptr), S_OK);
  std::thread([] { EXPECT_EQ(::CoInitialize(nullptr), S_OK); }).join();
  EXPECT_EQ(server_.com().Uses(), 2);  // the other thread forgot
}

TEST_F(ComTest, CountsUninitialisationsThatNothingCameBefore) {
  ::CoUninitialize();
  EXPECT_EQ(server_.com().SurplusUninitializations(), 1);
  EXPECT_EQ(server_.com().Uses(), 0);
}

TEST_F(ComTest, IsNotInitialisedWhenAFaultIsDue) {
  server_.calls().FailNext("CoInitialize", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_EQ(::CoInitialize(nullptr), static_cast<HRESULT>(0x80070008));
  EXPECT_EQ(server_.com().Uses(), 0);
  server_.calls().FailNext("CoInitialize", static_cast<DWORD>(E_OUTOFMEMORY));
  EXPECT_EQ(::CoInitialize(nullptr), E_OUTOFMEMORY);
}

TEST_F(ComTest, NumbersWhatCanFail) {
  ::CoInitialize(nullptr);
  ::CoUninitialize();
  ASSERT_EQ(server_.calls().Count(), 1);
  EXPECT_EQ(server_.calls().Trace().at(0).name, "CoInitialize");
}

TEST_F(ComTest, MakesTaskBarLists) {
  ITaskbarList3* const list = MakeList();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 1);
  EXPECT_EQ(list->Release(), 0u);
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 0);
}

TEST_F(ComTest, MakesNothingWithoutInitialisation) {
  int nothing = 0;
  auto* list = reinterpret_cast<ITaskbarList3*>(&nothing);
  EXPECT_EQ(Create(&list), CO_E_NOTINITIALIZED);
  EXPECT_EQ(list, nullptr);
}

TEST_F(ComTest, MakesNothingOfOtherClassesAndInterfaces) {
  ITaskbarList3* list = nullptr;
  ::CoInitialize(nullptr);
  EXPECT_EQ(Create(&list, kOtherClass), REGDB_E_CLASSNOTREG);
  EXPECT_EQ(Create(&list, CLSID_TaskbarList, kOtherClass), E_NOINTERFACE);
  EXPECT_EQ(list, nullptr);
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 0);
}

TEST_F(ComTest, MakesNothingWhenAFaultIsDue) {
  ITaskbarList3* list = nullptr;
  ::CoInitialize(nullptr);
  server_.calls().FailNext("CoCreateInstance", static_cast<DWORD>(REGDB_E_CLASSNOTREG));
  EXPECT_EQ(Create(&list), REGDB_E_CLASSNOTREG);
  EXPECT_EQ(list, nullptr);
}

TEST_F(ComTest, HasProgressOnTheTaskBarSinceWindows7) {
  struct Case {
    DWORD major;
    DWORD minor;
    HRESULT result;
  };
  ::CoInitialize(nullptr);
  for (const Case& c : {Case{5, 2, E_NOINTERFACE}, Case{6, 0, E_NOINTERFACE}, Case{6, 1, S_OK},
                        Case{6, 3, S_OK}, Case{10, 0, S_OK}}) {
    server_.system().major_version = c.major;
    server_.system().minor_version = c.minor;
    ITaskbarList3* list = nullptr;
    EXPECT_EQ(Create(&list), c.result) << c.major << '.' << c.minor;
    if (list != nullptr) list->Release();
  }
}

class TaskBarTest : public ComTest {
 protected:
  TaskBarTest() : window_(server_.desktop().CreateWindow()), list_(MakeList()) {}
  ~TaskBarTest() override { list_->Release(); }

  TaskbarProgress Progress() { return server_.com().TaskbarProgressOf(window_); }

  const HWND window_;
  ITaskbarList3* const list_;
};

TEST_F(TaskBarTest, ShowsNoProgressAtFirst) {
  EXPECT_EQ(Progress().state, TBPF_NOPROGRESS);
  EXPECT_EQ(Progress().total, 0u);
}

TEST_F(TaskBarTest, KeepsValueAndStateOfEachWindow) {
  const HWND other = server_.desktop().CreateWindow();
  EXPECT_EQ(list_->SetProgressState(window_, TBPF_ERROR), S_OK);
  EXPECT_EQ(list_->SetProgressValue(window_, 37, 100), S_OK);
  EXPECT_EQ(list_->SetProgressValue(other, 1, 2), S_OK);
  EXPECT_EQ(Progress().completed, 37u);
  EXPECT_EQ(Progress().total, 100u);
  EXPECT_EQ(Progress().state, TBPF_ERROR);
  EXPECT_EQ(server_.com().TaskbarProgressOf(other).completed, 1u);
}

TEST_F(TaskBarTest, ShowsAValueWhateverWentOnBefore) {
  for (const TBPFLAG before : {TBPF_NOPROGRESS, TBPF_NORMAL}) {
    list_->SetProgressState(window_, before);
    list_->SetProgressValue(window_, 1, 2);
    EXPECT_EQ(Progress().state, TBPF_NORMAL) << before;
  }
}

TEST_F(TaskBarTest, IsLeftAsItIsWhenAFaultIsDue) {
  server_.calls().FailNext("ITaskbarList3::SetProgressValue", ERROR_ACCESS_DENIED);
  EXPECT_EQ(list_->SetProgressValue(window_, 1, 2), static_cast<HRESULT>(0x80070005));
  EXPECT_EQ(Progress().total, 0u);
}

TEST_F(TaskBarTest, AbortsForWhatIsNotHonoured) {
  EXPECT_DEATH(list_->SetProgressValue(nullptr, 1, 2), "the progress of no window");
  EXPECT_DEATH(std::thread([this] { list_->Release(); }).join(), "on another thread");
  EXPECT_DEATH(
      {
        ::CoUninitialize();
        list_->Release();
      },
      "after CoUninitialize");
}

TEST_F(ComTest, AbortsForWhatIsNotHonoured) {
  void* object = nullptr;
  EXPECT_DEATH(::CoInitialize(&object), "reserved");
  EXPECT_DEATH(::CoCreateInstance(CLSID_TaskbarList, nullptr, 4, IID_ITaskbarList3, &object),
               "CoCreateInstance: context");
}

TEST_F(ComTest, CountsTheObjectsOfTheEndOfTheProcess) {
  ITaskbarList3* list = nullptr;
  server_.own_process().Run([&list]() -> int {
    list = MakeList();
    ::CoUninitialize();
    ::ExitProcess(0);
  });
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->Release(), 0u);
  EXPECT_EQ(server_.com().LiveTaskbarLists(), 1);
}

TEST_F(ComTest, StartsAnewWithANewProcess) {
  const auto initialise = [] { return static_cast<int>(::CoInitialize(nullptr)); };
  EXPECT_EQ(server_.own_process().Run(initialise), S_OK);
  EXPECT_EQ(server_.com().Uses(), 1);
  EXPECT_EQ(server_.own_process().Run(initialise), S_OK);
  EXPECT_EQ(server_.com().Uses(), 1);
}

}  // namespace
