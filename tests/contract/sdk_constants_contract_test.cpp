// Constants: the same in the simulator's headers and in the SDK's.
#include <windows.h>

#include <gtest/gtest.h>
#include <share.h>
#include <shlobj.h>

#include <cstdint>
#include <string_view>

namespace {

// share.h
static_assert(_SH_DENYRW == 0x10);
static_assert(_SH_DENYWR == 0x20);
static_assert(_SH_DENYRD == 0x30);
static_assert(_SH_DENYNO == 0x40);

// shlobj.h
static_assert(CSIDL_COMMON_STARTUP == 0x0018);

// winbase.h
static_assert(STARTF_USESHOWWINDOW == 0x00000001);
static_assert(STARTF_USESTDHANDLES == 0x00000100);
static_assert(CREATE_NO_WINDOW == 0x08000000);
static_assert(STILL_ACTIVE == 259);
static_assert(STD_INPUT_HANDLE == static_cast<DWORD>(-10));
static_assert(STD_OUTPUT_HANDLE == static_cast<DWORD>(-11));
static_assert(STD_ERROR_HANDLE == static_cast<DWORD>(-12));
static_assert(DRIVE_UNKNOWN == 0);
static_assert(DRIVE_NO_ROOT_DIR == 1);
static_assert(DRIVE_REMOVABLE == 2);
static_assert(DRIVE_FIXED == 3);
static_assert(DRIVE_REMOTE == 4);
static_assert(DRIVE_CDROM == 5);
static_assert(DRIVE_RAMDISK == 6);
static_assert(FILE_ATTRIBUTE_READONLY == 0x00000001);
static_assert(FILE_ATTRIBUTE_DIRECTORY == 0x00000010);
static_assert(FILE_ATTRIBUTE_ARCHIVE == 0x00000020);
static_assert(FORMAT_MESSAGE_ALLOCATE_BUFFER == 0x00000100);
static_assert(FORMAT_MESSAGE_IGNORE_INSERTS == 0x00000200);
static_assert(FORMAT_MESSAGE_FROM_SYSTEM == 0x00001000);

// wincon.h
static_assert(FOREGROUND_BLUE == 0x0001);
static_assert(FOREGROUND_GREEN == 0x0002);
static_assert(FOREGROUND_RED == 0x0004);
static_assert(FOREGROUND_INTENSITY == 0x0008);

// windef.h
static_assert(MAX_PATH == 260);

// winerror.h
static_assert(ERROR_SUCCESS == 0);
static_assert(ERROR_INVALID_FUNCTION == 1);
static_assert(ERROR_FILE_NOT_FOUND == 2);
static_assert(ERROR_PATH_NOT_FOUND == 3);
static_assert(ERROR_TOO_MANY_OPEN_FILES == 4);
static_assert(ERROR_ACCESS_DENIED == 5);
static_assert(ERROR_INVALID_HANDLE == 6);
static_assert(ERROR_NOT_ENOUGH_MEMORY == 8);
static_assert(ERROR_OUTOFMEMORY == 14);
static_assert(ERROR_WRITE_PROTECT == 19);
static_assert(ERROR_NOT_READY == 21);
static_assert(ERROR_GEN_FAILURE == 31);
static_assert(ERROR_SHARING_VIOLATION == 32);
static_assert(ERROR_HANDLE_EOF == 38);
static_assert(ERROR_HANDLE_DISK_FULL == 39);
static_assert(ERROR_NOT_SUPPORTED == 50);
static_assert(ERROR_FILE_EXISTS == 80);
static_assert(ERROR_INVALID_PARAMETER == 87);
static_assert(ERROR_BROKEN_PIPE == 109);
static_assert(ERROR_DISK_FULL == 112);
static_assert(ERROR_INSUFFICIENT_BUFFER == 122);
static_assert(ERROR_INVALID_NAME == 123);
static_assert(ERROR_MOD_NOT_FOUND == 126);
static_assert(ERROR_PROC_NOT_FOUND == 127);
static_assert(ERROR_DIR_NOT_EMPTY == 145);
static_assert(ERROR_BAD_PATHNAME == 161);
static_assert(ERROR_ALREADY_EXISTS == 183);
static_assert(ERROR_BAD_EXE_FORMAT == 193);
static_assert(ERROR_FILENAME_EXCED_RANGE == 206);
static_assert(ERROR_NO_DATA == 232);
static_assert(ERROR_DIRECTORY == 267);
static_assert(ERROR_MR_MID_NOT_FOUND == 317);
static_assert(ERROR_NO_UNICODE_TRANSLATION == 1113);
static_assert(ERROR_NOT_ALL_ASSIGNED == 1300);
static_assert(ERROR_NO_SUCH_PRIVILEGE == 1313);
static_assert(ERROR_PRIVILEGE_NOT_HELD == 1314);
static_assert(ERROR_INVALID_WINDOW_HANDLE == 1400);
static_assert(ERROR_RESOURCE_NAME_NOT_FOUND == 1814);
static_assert(ERROR_NOT_ENOUGH_QUOTA == 1816);
static_assert(S_OK == 0);

// winnls.h
static_assert(CP_ACP == 0);

// winnt.h
static_assert(TOKEN_QUERY == 0x0008);
static_assert(TOKEN_ADJUST_PRIVILEGES == 0x0020);
static_assert(SE_PRIVILEGE_ENABLED == 0x00000002);
static_assert(ANYSIZE_ARRAY == 1);
static_assert(VER_PLATFORM_WIN32_NT == 2);
static_assert(VER_NT_SERVER == 3);
static_assert(PROCESSOR_ARCHITECTURE_INTEL == 0);
static_assert(PROCESSOR_ARCHITECTURE_IA64 == 6);
static_assert(PROCESSOR_ARCHITECTURE_AMD64 == 9);
static_assert(LANG_NEUTRAL == 0x00);
static_assert(SUBLANG_DEFAULT == 0x01);

// winuser.h
static_assert(WM_USER == 0x0400);
static_assert(SW_HIDE == 0);
static_assert(MB_OK == 0x00000000);
static_assert(MB_OKCANCEL == 0x00000001);
static_assert(MB_ICONERROR == 0x00000010);
static_assert(MB_ICONQUESTION == 0x00000020);
static_assert(MB_ICONWARNING == 0x00000030);
static_assert(IDOK == 1);
static_assert(IDCANCEL == 2);

static_assert(TRUE == 1 && FALSE == 0);
static_assert(MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT) == 0x0400);
static_assert(MAKELANGID(0x04, 0x02) == 2052);
static_assert(std::string_view(SE_BACKUP_NAME) == "SeBackupPrivilege");
static_assert(std::string_view(SE_RESTORE_NAME) == "SeRestorePrivilege");

TEST(SdkConstants, InvalidHandleIsAllOnes) {
  EXPECT_EQ(reinterpret_cast<intptr_t>(INVALID_HANDLE_VALUE), -1);
}

}  // namespace
