#include "ui/restart.h"

#include <array>
#include <string>

#include "ui/resource.h"
#include "ui/show_message.h"

namespace ui {
namespace {

// Returns true if the privilege was adjusted. If the token does not hold it, only the last error
// says so.
bool Adjust(HANDLE token, TOKEN_PRIVILEGES& privileges, DWORD attributes) {
  privileges.Privileges[0].Attributes = attributes;
  ::AdjustTokenPrivileges(token, FALSE, &privileges, 0, nullptr, nullptr);
  return ::GetLastError() == ERROR_SUCCESS;
}

}  // namespace

bool Restart(const wchar_t* message) {
  constexpr DWORD kSeconds = 30;
  // Oddity: handles left open, see docs/oddities.md.
  HANDLE token = nullptr;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) {
    return false;
  }
  TOKEN_PRIVILEGES privileges{};
  privileges.PrivilegeCount = 1;
  ::LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &privileges.Privileges[0].Luid);
  if (!Adjust(token, privileges, SE_PRIVILEGE_ENABLED)) return false;
  // InitiateSystemShutdownW requires a writable text.
  std::wstring text = message;
  if (!::InitiateSystemShutdownW(nullptr, text.data(), kSeconds, FALSE, TRUE)) return false;
  Adjust(token, privileges, 0);
  return true;
}

void OfferRestart(HWND owner) {
  if (ShowMessage(owner, MB_OKCANCEL | MB_ICONQUESTION, "%s",
                  LoadResString(IDS_ASK_RESTART).c_str()) != IDOK) {
    return;
  }
  std::array<wchar_t, 256> message{};
  LoadResStringW().copy(message.data(), message.size() - 1);
  // Oddity: silent restart failure, see docs/oddities.md.
  static_cast<void>(Restart(message.data()));
}

}  // namespace ui
