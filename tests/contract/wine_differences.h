// Where Wine 8 is no judge of the simulator: what it answers otherwise than Windows, and what it
// cannot show. The tests of these matters skip under Wine, with the reason, and run natively and on
// Windows.
#ifndef TESTS_CONTRACT_WINE_DIFFERENCES_H_
#define TESTS_CONTRACT_WINE_DIFFERENCES_H_

#ifdef _WIN32
#include <windows.h>
#endif

namespace tests {

inline bool IsUnderWine() {
#ifdef _WIN32
  return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
  return false;
#endif
}

namespace wine {

// Paths.
inline constexpr char kFolderWithBackslash[] =
    "Wine opens \"folder\\\" with ERROR_ACCESS_DENIED, as \"folder\"; Windows with "
    "ERROR_PATH_NOT_FOUND";
inline constexpr char kFileWithBackslash[] =
    "Wine finds no path behind \"file\\\", ERROR_PATH_NOT_FOUND; Windows no valid name, "
    "ERROR_INVALID_NAME";
inline constexpr char kFreeLetter[] =
    "Wine misses a file, not the path, on a drive that is not there: ERROR_FILE_NOT_FOUND";
inline constexpr char kRootOfDrive[] =
    "Wine refuses the root of a drive as an existing folder; Windows denies access to make it, and "
    "finds no path to open it";
inline constexpr char kLongPath[] =
    "Wine has no bound of its own for full paths, and says ERROR_FILENAME_EXCED_RANGE where "
    "Windows "
    "says ERROR_PATH_NOT_FOUND";
inline constexpr char kNetworkPath[] =
    "Wine looks for devices and network paths on the disk of its host, and says "
    "ERROR_BAD_NET_NAME";
inline constexpr char kEmptyFullPath[] = "Wine sets no last error when a path has no full one";

inline constexpr char kEmptyDrive[] =
    "Wine has no drive without a medium: where the folder of a drive is missing, it finds no path "
    "or no file, ERROR_PATH_NOT_FOUND or ERROR_FILE_NOT_FOUND";

// Files.
inline constexpr char kArchiveAttribute[] =
    "Wine makes FILE_ATTRIBUTE_ARCHIVE of the mode bits of its host";
inline constexpr char kReparsePoints[] =
    "Wine makes no reparse points: FSCTL_SET_REPARSE_POINT fails with ERROR_NOT_SUPPORTED";
inline constexpr char kDescriptors[] =
    "Wine keeps no more of a descriptor than the mode bits of its host, which do not bind root";

// The C runtime.
inline constexpr char kEmptyPathToOpen[] =
    "Wine asks the system for the empty path, ENOENT; the runtime of Windows refuses it, EINVAL";
inline constexpr char kNoPath[] =
    "Wine asks the system for a null path, ENOENT; the runtime of Windows refuses it, EINVAL";
inline constexpr char kAccessMode[] =
    "Wine takes any mode of _access; the runtime of Windows refuses what is not 0, 2, 4 or 6";
inline constexpr char kFinalCtrlZ[] =
    "Wine keeps a final Ctrl-Z of a text file opened for reading and writing";
inline constexpr char kReadingWriteOnly[] =
    "Wine does not set the error flag of a stream that is read and open for writing only";
inline constexpr char kErrnoTexts[] =
    "Wine has texts of its own for a dozen of the runtime's error numbers";
inline constexpr char kLastYear[] =
    "Wine converts times beyond the year 3000, where the runtime of Windows ends";

// The system.
inline constexpr char kReparseMessages[] = "Wine has no texts for the codes of reparse points";
inline constexpr char kSystemMessages[] = "Wine has texts of its own for system error codes";
inline constexpr char kCutModuleFileName[] =
    "Wine leaves a path that is cut without a terminator, as Windows XP and Server 2003 do";
inline constexpr char kUtf8Practice[] =
    "Wine takes the second byte of an overlong form, of a surrogate and of what lies beyond "
    "U+10FFFF together with the first: one U+FFFD less";
inline constexpr char kMessageBoxOwner[] =
    "Wine's message box answers -1, not 0, when its owner is not there";
inline constexpr char kNoScreen[] = "Wine makes no windows without a screen";
inline constexpr char kMissingControl[] =
    "Wine sets no last error when a control or its dialog is not there";
inline constexpr char kMissingIcon[] =
    "Wine looks for an animated icon last, and misses resources of that type";
inline constexpr char kDefaultProcedure[] =
    "Wine sets no last error when DefWindowProcW is called for no window";
inline constexpr char kUnknownWindow[] =
    "Wine denies access to a window that is not there, and takes it for a handle of the kernel "
    "when "
    "it comes to timers";
inline constexpr char kWideVersion[] =
    "Wine sets no last error when GetVersionExW refuses a size, as it does for GetVersionExA";
inline constexpr char kNewPrivileges[] =
    "Wine has no privileges behind SeCreateGlobalPrivilege: those of Windows Vista and 10";
inline constexpr char kEmptyWrite[] =
    "Wine ignores a write of zero bytes to a pipe; the documentation of ReadFile tells of a read "
    "of "
    "zero bytes at the other end";

// Security.
inline constexpr char kCopySid[] = "Wine sets no last error when a SID does not fit";
inline constexpr char kAbsoluteDescriptor[] =
    "Wine says ERROR_INVALID_PARAMETER of a descriptor that is not self-relative; Windows "
    "ERROR_BAD_DESCRIPTOR_FORMAT";

// Security descriptors as text.
inline constexpr char kEntryTypes[] =
    "Wine reads no entries for objects, with conditions, with attributes and of policies";
inline constexpr char kLabels[] = "Wine prints mandatory labels without their type";
inline constexpr char kNewSidAliases[] = "Wine has no aliases of groups behind Windows Vista";
inline constexpr char kAccountDomains[] =
    "Wine takes the accounts of every domain for those of S-1-5-21-0-0-0";
inline constexpr char kNullList[] = "Wine makes an empty list of NO_ACCESS_CONTROL";
inline constexpr char kSaclFlags[] = "Wine keeps the flags of a SACL among those of the DACL";
inline constexpr char kLowerCase[] = "Wine reads capitals only";
inline constexpr char kPartTwice[] = "Wine takes the last of two owners or lists";
inline constexpr char kEndOfList[] = "Wine ignores what stands behind a list and a blank";
inline constexpr char kLongSid[] = "Wine reads SIDs of more parts than a SID may have";
inline constexpr char kLargeAuthority[] = "Wine reads 32 bits of a SID's authority";
inline constexpr char kNegativeRights[] = "Wine reads no negative numbers";
inline constexpr char kNoSddl[] = "Wine sets no last error when there is no text";
inline constexpr char kSddlErrors[] = "Wine has other codes for this wrong text";

// Processes.
inline constexpr char kTerminatedTwice[] =
    "Wine terminates a process that has ended, to no effect; Windows denies access";
inline constexpr char kLongCommandLine[] =
    "Wine refuses a command line that is too long with ERROR_INVALID_PARAMETER; Windows with "
    "ERROR_FILENAME_EXCED_RANGE. Its command interpreter crashes on the longest one there is";

}  // namespace wine
}  // namespace tests

#endif  // TESTS_CONTRACT_WINE_DIFFERENCES_H_
