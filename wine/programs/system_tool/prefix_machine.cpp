#include "wine/programs/system_tool/prefix_machine.h"

#include <windows.h>

#include <winioctl.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "common/owner.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/files/volume.h"

namespace simulator {
namespace {

std::wstring Wide(const std::string& utf8) {
  const std::u16string units = Utf16FromUtf8(utf8);
  return {units.begin(), units.end()};
}

char UpperLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// Wine's own control code and record to define or remove a drive. Strings lie behind the record, at
// the offsets that it tells.
constexpr DWORD kDefineUnixDrive =
    CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);

struct UnixDrive {
  ULONG size;
  ULONG type;     // DRIVE_NO_ROOT_DIR removes the drive
  ULONG fs_type;  // 0 for any
  DWORD serial;
  ULONGLONG unix_dev;
  WCHAR letter;
  USHORT mount_point_offset;
  USHORT device_offset;
  USHORT label_offset;
};
static_assert(sizeof(UnixDrive) == 32);

void DefineDrive(char letter, UINT type, const std::string& target) {
  const size_t size = sizeof(UnixDrive) + (target.empty() ? 0 : target.size() + 1);
  std::vector<char> request(size);
  UnixDrive drive{};
  drive.size = static_cast<ULONG>(size);
  drive.type = type;
  drive.letter = static_cast<WCHAR>(letter);
  drive.mount_point_offset = target.empty() ? USHORT{0} : USHORT{sizeof(UnixDrive)};
  std::memcpy(request.data(), &drive, sizeof drive);
  if (!target.empty())
    std::memcpy(request.data() + sizeof drive, target.c_str(), target.size() + 1);

  const common::UniqueFileHandle manager(::CreateFileW(L"\\\\.\\MountPointManager",
                                                       GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                       OPEN_EXISTING, 0, nullptr));
  if (::DeviceIoControl(manager.get(), kDefineUnixDrive, request.data(), drive.size, nullptr, 0,
                        nullptr, nullptr) == FALSE) {
    Unsupported("the mount manager does not change drive " + std::string(1, letter));
  }
}

}  // namespace

std::optional<char> PrefixMachine::LetterOf(const Volume& volume) const {
  return state_.LetterOf(volume);
}

std::shared_ptr<Volume> PrefixMachine::VolumeAt(char letter) const {
  const auto found = state_.letters.find(UpperLetter(letter));
  return found == state_.letters.end() ? nullptr : found->second;
}

std::optional<char> PrefixMachine::FreeLetter() const {
  for (char letter = 'C'; letter <= 'Z'; ++letter) {
    if (VolumeAt(letter) == nullptr) return letter;
  }
  return std::nullopt;
}

void PrefixMachine::Mount(char letter, const std::shared_ptr<Volume>& volume) {
  DefineDrive(UpperLetter(letter), volume->drive_type, state_.targets.at(volume.get()));
  state_.letters[UpperLetter(letter)] = volume;
}

void PrefixMachine::Unmount(char letter) {
  DefineDrive(UpperLetter(letter), DRIVE_NO_ROOT_DIR, "");
  state_.letters.erase(UpperLetter(letter));
}

DWORD PrefixMachine::ReadFrom(const std::string& path, std::string* bytes) const {
  const common::UniqueFileHandle file(::CreateFileW(Wide(path).c_str(), GENERIC_READ,
                                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                                    OPEN_EXISTING, 0, nullptr));
  if (!file) return ::GetLastError();
  char buffer[4096];
  DWORD read = 0;
  do {
    if (::ReadFile(file.get(), buffer, sizeof buffer, &read, nullptr) == FALSE) {
      return ::GetLastError();
    }
    bytes->append(buffer, read);
  } while (read > 0);
  return ERROR_SUCCESS;
}

DWORD PrefixMachine::WriteTo(const std::string& path, std::string_view bytes) {
  const common::UniqueFileHandle file(::CreateFileW(
      Wide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, 0, nullptr));
  if (!file) return ::GetLastError();
  DWORD written = 0;
  const BOOL is_written =
      ::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  return is_written == FALSE ? ::GetLastError() : DWORD{ERROR_SUCCESS};
}

bool PrefixMachine::IsFolder(const std::string& path) const {
  const DWORD attributes = ::GetFileAttributesW(Wide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string PrefixMachine::FullPath(const std::string& path) const {
  wchar_t full[MAX_PATH];
  const DWORD length = ::GetFullPathNameW(Wide(path).c_str(), MAX_PATH, full, nullptr);
  const std::u16string units(full, full + (length < MAX_PATH ? length : 0));
  return Utf8FromUtf16(units);
}

}  // namespace simulator
