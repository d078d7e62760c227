// Dialogs, their controls and messages, on the dialog of the program's own resources.
#include <windows.h>

#include <commctrl.h>

#include <map>
#include <ostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"
#include "ui/resource.h"

namespace tests {
namespace {

constexpr UINT kMessage = WM_USER + 101;
constexpr int kNoSuchResource = 999;

struct Told {
  UINT message;
  WPARAM wparam;
  LPARAM lparam;

  friend bool operator==(const Told&, const Told&) = default;
};

std::ostream& operator<<(std::ostream& out, const Told& told) {
  return out << told.message << " " << told.wparam << " " << told.lparam;
}

// A dialog that is never shown, so that only what the tests do reaches it.
class DialogContract : public HostTest {
 protected:
  DialogContract() { current = this; }
  ~DialogContract() override {
    if (dialog_ != nullptr) ::DestroyWindow(dialog_);
    current = nullptr;
  }

  void SetUp() override {
    const INITCOMMONCONTROLSEX controls = {sizeof(controls), ICC_BAR_CLASSES | ICC_COOL_CLASSES};
    ASSERT_TRUE(::InitCommonControlsEx(&controls));
    dialog_ = ::CreateDialogParamW(Program(), MAKEINTRESOURCEW(IDD_MAIN), nullptr, &Procedure, 77);
    if (dialog_ == nullptr && IsUnderWine()) GTEST_SKIP() << wine::kNoScreen;
    ASSERT_NE(dialog_, nullptr) << ::GetLastError();
  }

  HWND Item(int id) const { return ::GetDlgItem(dialog_, id); }
  void Destroy() { ::DestroyWindow(std::exchange(dialog_, nullptr)); }

  // Of the messages told those of these numbers, and no others.
  std::vector<Told> ToldOf(std::vector<UINT> messages) const {
    std::vector<Told> found;
    for (const Told& told : told_) {
      for (const UINT message : messages) {
        if (told.message == message) found.push_back(told);
      }
    }
    return found;
  }
  std::vector<UINT> NumbersOf(std::vector<UINT> messages) const {
    std::vector<UINT> numbers;
    for (const Told& told : ToldOf(std::move(messages))) numbers.push_back(told.message);
    return numbers;
  }

  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    current->told_.push_back({message, wparam, lparam});
    if (message == WM_DESTROY || message == WM_NCDESTROY) {
      current->had_log_.push_back(::GetDlgItem(dialog, IDC_LOG) != nullptr);
    }
    return FALSE;
  }

  HWND dialog_ = nullptr;
  std::vector<Told> told_;
  std::vector<bool> had_log_;  // at each message of the end

 private:
  static inline DialogContract* current = nullptr;
};

TEST_F(DialogContract, IsToldItsFontAndThenToInitialise) {
  EXPECT_EQ(NumbersOf({WM_SETFONT, WM_INITDIALOG}), (std::vector<UINT>{WM_SETFONT, WM_INITDIALOG}));
  const Told initialise = ToldOf({WM_INITDIALOG}).at(0);
  EXPECT_EQ(initialise.wparam, reinterpret_cast<WPARAM>(Item(IDC_LOG)));
  EXPECT_EQ(initialise.lparam, 77);
}

TEST_F(DialogContract, FindsItsControls) {
  for (const int id : {IDC_LOG, IDC_PROGRESS, IDC_NOTE, IDCANCEL}) {
    const HWND control = Item(id);
    ASSERT_NE(control, nullptr) << id;
    EXPECT_EQ(::GetDlgCtrlID(control), id);
    EXPECT_EQ(::GetParent(control), dialog_);
  }
  EXPECT_EQ(::GetParent(dialog_), nullptr);
}

TEST_F(DialogContract, FindsNoControlThatIsNotThere) {
  EXPECT_EQ(::GetDlgItem(dialog_, 1), nullptr);
  if (IsUnderWine()) GTEST_SKIP() << wine::kMissingControl;
  EXPECT_EQ(ErrorOf([&] { return ::GetDlgItem(dialog_, 1); }), DWORD{ERROR_CONTROL_ID_NOT_FOUND});
}

TEST_F(DialogContract, KeepsAValueOfTheProgram) {
  EXPECT_EQ(::SetWindowLongPtrW(dialog_, DWLP_USER, -5), 0);
  EXPECT_EQ(::SetWindowLongPtrW(dialog_, DWLP_USER, 6), -5);
  EXPECT_EQ(::GetWindowLongPtrW(dialog_, DWLP_USER), 6);
}

TEST_F(DialogContract, TakesItsCaption) {
  EXPECT_TRUE(::SetWindowTextA(dialog_, "37.50%"));
  EXPECT_EQ(::GetWindowTextLengthW(dialog_), 6);
}

TEST_F(DialogContract, MovesWithoutChangingItsSize) {
  RECT before{};
  ASSERT_TRUE(::GetWindowRect(dialog_, &before));
  EXPECT_TRUE(
      ::SetWindowPos(dialog_, nullptr, 40, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE));
  RECT after{};
  ASSERT_TRUE(::GetWindowRect(dialog_, &after));
  EXPECT_EQ(after.left, 40);
  EXPECT_EQ(after.top, 30);
  EXPECT_EQ(after.right - after.left, before.right - before.left);
  EXPECT_EQ(after.bottom - after.top, before.bottom - before.top);
}

TEST_F(DialogContract, GivesTheIconBefore) {
  const LPARAM icon = reinterpret_cast<LPARAM>(::LoadIconW(Program(), MAKEINTRESOURCEW(IDI_TOOL)));
  EXPECT_NE(icon, 0);
  EXPECT_EQ(::SendMessageW(dialog_, WM_SETICON, ICON_BIG, icon), 0);
  EXPECT_EQ(::SendMessageW(dialog_, WM_SETICON, ICON_BIG, 0), icon);
}

TEST_F(DialogContract, IsToldItsEndWithItsControlsAtFirst) {
  told_.clear();
  Destroy();
  EXPECT_EQ(NumbersOf({WM_DESTROY, WM_NCDESTROY}), (std::vector<UINT>{WM_DESTROY, WM_NCDESTROY}));
  EXPECT_EQ(had_log_, (std::vector<bool>{true, false}));
}

TEST_F(DialogContract, IsDestroyedByItsOwnThreadAlone) {
  std::thread([this] {
    EXPECT_EQ(ErrorOf([&] { return ::DestroyWindow(dialog_); }), DWORD{ERROR_ACCESS_DENIED});
  }).join();
  EXPECT_EQ(::GetDlgCtrlID(Item(IDC_LOG)), IDC_LOG);
}

TEST_F(DialogContract, IsDispatchedItsMessagesByIsDialogMessage) {
  MSG message{};
  message.hwnd = dialog_;
  message.message = kMessage;
  message.wParam = 5;
  EXPECT_TRUE(::IsDialogMessageW(dialog_, &message));
  EXPECT_EQ(ToldOf({kMessage}), (std::vector<Told>{{kMessage, 5, 0}}));
}

TEST_F(DialogContract, TakesEscapeForItsCancelButton) {
  told_.clear();
  MSG message{};
  message.hwnd = dialog_;
  message.message = WM_KEYDOWN;
  message.wParam = VK_ESCAPE;
  message.lParam = 1;
  EXPECT_TRUE(::IsDialogMessageW(dialog_, &message));
  EXPECT_EQ(ToldOf({WM_COMMAND}),
            (std::vector<Told>{{WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(Item(IDCANCEL))}}));
}

TEST_F(DialogContract, TakesReturnForOkWithoutADefaultButton) {
  told_.clear();
  MSG message{};
  message.hwnd = dialog_;
  message.message = WM_KEYDOWN;
  message.wParam = VK_RETURN;
  message.lParam = 1;
  EXPECT_TRUE(::IsDialogMessageW(dialog_, &message));
  EXPECT_EQ(ToldOf({WM_COMMAND}), (std::vector<Told>{{WM_COMMAND, IDOK, 0}}));
}

class MessageLoopContract : public DialogContract {
 protected:
  // Waits until the time of a timer has passed, and takes no message.
  static void WaitForTimer() {
#ifdef _WIN32
    ::MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_TIMER, MWMO_INPUTAVAILABLE);
#else
    ::Sleep(kPeriod);  // on the simulated server's clock
#endif
  }
  static constexpr UINT kPeriod = 20;  // milliseconds

  // The numbers of the next messages of interest, up to and with WM_QUIT.
  static std::vector<UINT> Loop() {
    std::vector<UINT> numbers;
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
      if (message.message == WM_TIMER || message.message >= WM_USER) {
        numbers.push_back(message.message);
      }
    }
    numbers.push_back(message.message);
    return numbers;
  }
};

TEST_F(MessageLoopContract, GivesWhatIsPostedInItsOrderAndThenQuits) {
  ::PostQuitMessage(3);
  EXPECT_TRUE(::PostMessageW(dialog_, kMessage, 0, 0));
  EXPECT_TRUE(::PostMessageA(dialog_, kMessage + 1, 0, 0));
  EXPECT_EQ(Loop(), (std::vector<UINT>{kMessage, kMessage + 1, WM_QUIT}));
}

TEST_F(MessageLoopContract, GivesATimerWhoseTimeHasPassedOnce) {
  constexpr UINT_PTR kTimer = 1001;
  EXPECT_NE(::SetTimer(dialog_, kTimer, kPeriod, nullptr), 0u);
  WaitForTimer();
  MSG message{};
  do {
    ASSERT_GT(::GetMessageW(&message, nullptr, 0, 0), 0);
  } while (message.message != WM_TIMER);
  EXPECT_EQ(message.hwnd, dialog_);
  EXPECT_EQ(message.wParam, kTimer);
  EXPECT_EQ(message.lParam, 0);
  EXPECT_TRUE(::KillTimer(dialog_, kTimer));
  EXPECT_EQ(ErrorOf([&] { return ::KillTimer(dialog_, kTimer); }), DWORD{ERROR_INVALID_PARAMETER});
  ::PostQuitMessage(0);
  EXPECT_EQ(Loop(), std::vector<UINT>{WM_QUIT});
}

TEST_F(MessageLoopContract, GivesPostedMessagesBeforeTimers) {
  ::SetTimer(dialog_, 1, kPeriod, nullptr);
  WaitForTimer();
  ::PostMessageW(dialog_, kMessage, 0, 0);
  MSG message{};
  ASSERT_GT(::GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.message, kMessage);
}

TEST_F(MessageLoopContract, LosesWhatIsPostedToADestroyedWindow) {
  ::PostMessageW(dialog_, kMessage, 0, 0);
  Destroy();
  ::PostQuitMessage(0);
  EXPECT_EQ(Loop(), std::vector<UINT>{WM_QUIT});
}

// An edit control that can only be read asks as a static control does.
TEST_F(MessageLoopContract, PaintsBeforeItGivesTimers) {
  ::SetTimer(dialog_, 1, kPeriod, nullptr);
  ::ShowWindow(dialog_, SW_SHOWNORMAL);
  WaitForTimer();
  MSG message{};
  do {
    ASSERT_GT(::GetMessageW(&message, nullptr, 0, 0), 0);
    ::DispatchMessageW(&message);
  } while (message.message != WM_TIMER);
  std::map<LPARAM, UINT> asked;
  for (const Told& told : ToldOf({WM_CTLCOLORSTATIC, WM_CTLCOLOREDIT, WM_CTLCOLORBTN})) {
    asked[told.lparam] = told.message;
  }
  const auto window = [this](int id) { return reinterpret_cast<LPARAM>(Item(id)); };
  EXPECT_EQ(asked, (std::map<LPARAM, UINT>{{window(IDC_LOG), WM_CTLCOLORSTATIC},
                                           {window(IDC_NOTE), WM_CTLCOLORSTATIC},
                                           {window(IDCANCEL), WM_CTLCOLORBTN}}));
}

class EditContract : public DialogContract {
 protected:
  void Append(const std::wstring& text) {
    const int length = ::GetWindowTextLengthW(Item(IDC_LOG));
    ::SendMessageW(Item(IDC_LOG), EM_SETSEL, static_cast<WPARAM>(length), length);
    ::SendMessageW(Item(IDC_LOG), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(text.c_str()));
  }
  // The codes of the commands told by the control.
  std::vector<WORD> Codes() const {
    std::vector<WORD> codes;
    for (const Told& told : ToldOf({WM_COMMAND})) {
      const WORD code = HIWORD(told.wparam);
      if (code == EN_UPDATE || code == EN_CHANGE || code == EN_MAXTEXT) codes.push_back(code);
      EXPECT_EQ(LOWORD(told.wparam), IDC_LOG);
      EXPECT_EQ(told.lparam, reinterpret_cast<LPARAM>(Item(IDC_LOG)));
    }
    return codes;
  }
};

TEST_F(EditContract, CountsTheCharactersOfItsText) {
  Append(L"one\r\n");
  Append(L"\u8fdb\u5ea6");
  EXPECT_EQ(::GetWindowTextLengthW(Item(IDC_LOG)), 7);
}

TEST_F(EditContract, ReplacesWhatIsSelected) {
  Append(L"abcdef");
  ::SendMessageW(Item(IDC_LOG), EM_SETSEL, 1, 3);
  ::SendMessageW(Item(IDC_LOG), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L"X"));
  EXPECT_EQ(::GetWindowTextLengthW(Item(IDC_LOG)), 5);
  ::SendMessageW(Item(IDC_LOG), EM_SETSEL, 0, -1);
  ::SendMessageW(Item(IDC_LOG), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
  EXPECT_EQ(::GetWindowTextLengthW(Item(IDC_LOG)), 0);
}

TEST_F(EditContract, TellsThatItHasChanged) {
  told_.clear();
  Append(L"abc");
  EXPECT_EQ(Codes(), (std::vector<WORD>{EN_UPDATE, EN_CHANGE}));
}

TEST_F(EditContract, HoldsThirtyThousandCharacters) {
  Append(std::wstring(29'999, L'a'));
  told_.clear();
  Append(L"bc");
  EXPECT_EQ(::GetWindowTextLengthW(Item(IDC_LOG)), 30'000);
  EXPECT_EQ(Codes(), (std::vector<WORD>{EN_MAXTEXT, EN_UPDATE, EN_CHANGE}));
}

class ProgressBarContract : public DialogContract {
 protected:
  LRESULT Send(UINT message, WPARAM wparam, LPARAM lparam) {
    return ::SendMessageW(Item(IDC_PROGRESS), message, wparam, lparam);
  }
};

TEST_F(ProgressBarContract, GivesTheRangeBefore) {
  EXPECT_EQ(Send(PBM_SETRANGE, 0, MAKELPARAM(10, 300)), MAKELPARAM(0, 100));
  EXPECT_EQ(Send(PBM_SETRANGE, 0, MAKELPARAM(0, 100)), MAKELPARAM(10, 300));
}

TEST_F(ProgressBarContract, GivesThePositionBeforeWithinItsRange) {
  EXPECT_EQ(Send(PBM_SETPOS, 37, 0), 0);
  EXPECT_EQ(Send(PBM_SETPOS, 1000, 0), 37);
  EXPECT_EQ(Send(PBM_SETPOS, 0, 0), 100);
}

class WithoutWindows : public HostTest {};

TEST_F(WithoutWindows, ThereIsNoDialogWithoutATemplate) {
  const LPCWSTR name = MAKEINTRESOURCEW(kNoSuchResource);
  const DLGPROC procedure = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
  EXPECT_EQ(ErrorOf([&] { return ::CreateDialogParamW(Program(), name, nullptr, procedure, 0); }),
            DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
}

TEST_F(WithoutWindows, ThereAreIcons) {
  const LPCWSTR name = MAKEINTRESOURCEW(IDI_TOOL);
  const HICON icon = ::LoadIconW(Program(), name);
  EXPECT_NE(icon, nullptr);
  EXPECT_EQ(::LoadIconW(Program(), name), icon);
}

TEST_F(WithoutWindows, ThereIsNoIconThatIsNotThere) {
  EXPECT_EQ(::LoadIconW(Program(), MAKEINTRESOURCEW(kNoSuchResource)), nullptr);
  if (IsUnderWine()) GTEST_SKIP() << wine::kMissingIcon;
  EXPECT_EQ(ErrorOf([] { return ::LoadIconW(Program(), MAKEINTRESOURCEW(kNoSuchResource)); }),
            DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
}

TEST_F(WithoutWindows, TheLoopQuitsAllTheSame) {
  ::PostQuitMessage(1);
  ::PostQuitMessage(2);
  MSG message{};
  EXPECT_EQ(::GetMessageW(&message, nullptr, 0, 0), FALSE);
  EXPECT_EQ(message.message, UINT{WM_QUIT});
  EXPECT_EQ(message.hwnd, nullptr);
  EXPECT_EQ(message.wParam, 2u);
  EXPECT_EQ(::DispatchMessageW(&message), 0);
}

TEST_F(WithoutWindows, ThereAreTwoStockBrushes) {
  EXPECT_NE(::GetStockObject(WHITE_BRUSH), nullptr);
  EXPECT_NE(::GetStockObject(NULL_BRUSH), nullptr);
  EXPECT_NE(::GetStockObject(WHITE_BRUSH), ::GetStockObject(NULL_BRUSH));
}

TEST_F(WithoutWindows, ThereAreNoColors) {
  EXPECT_EQ(::SetTextColor(nullptr, RGB(1, 2, 3)), CLR_INVALID);
  EXPECT_EQ(::SetBkColor(nullptr, RGB(1, 2, 3)), CLR_INVALID);
  EXPECT_EQ(::SetBkMode(nullptr, TRANSPARENT), 0);
}

TEST_F(WithoutWindows, TheDefaultProcedureDoesNothing) {
  EXPECT_EQ(::DefWindowProcW(nullptr, 0, 0, 0), 0);
  if (IsUnderWine()) GTEST_SKIP() << wine::kDefaultProcedure;
  EXPECT_EQ(ErrorOf([] { return ::DefWindowProcW(nullptr, 0, 0, 0); }),
            DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

TEST_F(WithoutWindows, ThereIsRoomOnTheScreen) {
  RECT area{};
  EXPECT_TRUE(::SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0));
  EXPECT_GT(area.right, area.left);
  EXPECT_GT(area.bottom, area.top);
}

struct WindowCall {
  const char* name;
  bool (*works)(HWND window);
  const char* wine_difference = nullptr;
};

std::ostream& operator<<(std::ostream& out, const WindowCall& call) { return out << call.name; }

class UnknownWindowContract : public HostTest, public testing::WithParamInterface<WindowCall> {};

TEST_P(UnknownWindowContract, IsAnInvalidHandle) {
  const HWND nobodys = reinterpret_cast<HWND>(UINT_PTR{0x7EDCBA98});
  EXPECT_FALSE(GetParam().works(nobodys));
  if (IsUnderWine() && GetParam().wine_difference != nullptr) {
    GTEST_SKIP() << GetParam().wine_difference;
  }
  EXPECT_EQ(ErrorOf([&] { return GetParam().works(nobodys); }), DWORD{ERROR_INVALID_WINDOW_HANDLE});
}

INSTANTIATE_TEST_SUITE_P(
    All, UnknownWindowContract,
    testing::Values(
        WindowCall{"DestroyWindow", [](HWND w) { return ::DestroyWindow(w) != FALSE; },
                   wine::kUnknownWindow},
        WindowCall{"GetDlgItem", [](HWND w) { return ::GetDlgItem(w, 1) != nullptr; },
                   wine::kMissingControl},
        WindowCall{"GetDlgCtrlID", [](HWND w) { return ::GetDlgCtrlID(w) != 0; }},
        WindowCall{"GetParent", [](HWND w) { return ::GetParent(w) != nullptr; }},
        WindowCall{"GetWindowLongPtrW",
                   [](HWND w) { return ::GetWindowLongPtrW(w, DWLP_USER) != 0; }},
        WindowCall{"SetWindowLongPtrW",
                   [](HWND w) { return ::SetWindowLongPtrW(w, DWLP_USER, 5) != 0; }},
        WindowCall{"ShowWindow", [](HWND w) { return ::ShowWindow(w, SW_SHOW) != FALSE; }},
        WindowCall{"GetWindowTextLengthW", [](HWND w) { return ::GetWindowTextLengthW(w) != 0; }},
        WindowCall{"SetWindowTextA", [](HWND w) { return ::SetWindowTextA(w, "text") != FALSE; }},
        WindowCall{"GetWindowRect",
                   [](HWND w) {
                     RECT place{};
                     return ::GetWindowRect(w, &place) != FALSE;
                   }},
        WindowCall{"SetWindowPos",
                   [](HWND w) {
                     constexpr UINT kFlags = SWP_NOSIZE | SWP_NOZORDER;
                     return ::SetWindowPos(w, nullptr, 0, 0, 0, 0, kFlags) != FALSE;
                   }},
        WindowCall{"SendMessageW", [](HWND w) { return ::SendMessageW(w, kMessage, 0, 0) != 0; }},
        WindowCall{"PostMessageW",
                   [](HWND w) { return ::PostMessageW(w, kMessage, 0, 0) != FALSE; }},
        WindowCall{"SetTimer", [](HWND w) { return ::SetTimer(w, 1, 1000, nullptr) != 0; },
                   wine::kUnknownWindow},
        WindowCall{"KillTimer", [](HWND w) { return ::KillTimer(w, 1) != FALSE; },
                   wine::kUnknownWindow}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace tests
