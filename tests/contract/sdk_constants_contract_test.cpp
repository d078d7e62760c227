// Constants: the same in the simulator's headers and in the SDK's.
#include <windows.h>

#include <accctrl.h>
#include <commctrl.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <sddl.h>
#include <share.h>
#include <shlobj.h>
#include <shobjidl.h>
#include <winioctl.h>

#include <cstdint>
#include <string_view>

namespace {

// commctrl.h
static_assert(ICC_BAR_CLASSES == 0x00000004);
static_assert(ICC_COOL_CLASSES == 0x00000400);
static_assert(PBM_SETRANGE == WM_USER + 1);
static_assert(PBM_SETPOS == WM_USER + 2);
static_assert(PBM_SETSTATE == WM_USER + 16);
static_assert(PBST_NORMAL == 1);
static_assert(PBST_ERROR == 2);
static_assert(PBST_PAUSED == 3);

// sddl.h
static_assert(SDDL_REVISION_1 == 1);

// objbase.h
static_assert(CLSCTX_INPROC_SERVER == 0x1);

// share.h
static_assert(_SH_DENYRW == 0x10);
static_assert(_SH_DENYNO == 0x40);

// shlobj.h
static_assert(CSIDL_COMMON_STARTUP == 0x0018);

// shobjidl.h
static_assert(TBPF_NOPROGRESS == 0);
static_assert(TBPF_NORMAL == 0x2);
static_assert(TBPF_ERROR == 0x4);
static_assert(TBPF_PAUSED == 0x8);

// winbase.h
static_assert(STARTF_USESHOWWINDOW == 0x00000001);
static_assert(STARTF_USESTDHANDLES == 0x00000100);
static_assert(CREATE_NO_WINDOW == 0x08000000);
static_assert(STILL_ACTIVE == 259);
static_assert(STD_INPUT_HANDLE == static_cast<DWORD>(-10));
static_assert(STD_OUTPUT_HANDLE == static_cast<DWORD>(-11));
static_assert(STD_ERROR_HANDLE == static_cast<DWORD>(-12));
static_assert(SEM_FAILCRITICALERRORS == 0x0001);
static_assert(SEM_NOOPENFILEERRORBOX == 0x8000);
static_assert(DRIVE_UNKNOWN == 0);
static_assert(DRIVE_NO_ROOT_DIR == 1);
static_assert(DRIVE_REMOVABLE == 2);
static_assert(DRIVE_FIXED == 3);
static_assert(DRIVE_REMOTE == 4);
static_assert(DRIVE_CDROM == 5);
static_assert(DRIVE_RAMDISK == 6);
static_assert(FILE_SHARE_READ == 0x00000001);
static_assert(FILE_SHARE_WRITE == 0x00000002);
static_assert(FILE_SHARE_DELETE == 0x00000004);
static_assert(FILE_ATTRIBUTE_READONLY == 0x00000001);
static_assert(FILE_ATTRIBUTE_HIDDEN == 0x00000002);
static_assert(FILE_ATTRIBUTE_SYSTEM == 0x00000004);
static_assert(FILE_ATTRIBUTE_DIRECTORY == 0x00000010);
static_assert(FILE_ATTRIBUTE_ARCHIVE == 0x00000020);
static_assert(FILE_ATTRIBUTE_NORMAL == 0x00000080);
static_assert(FILE_ATTRIBUTE_TEMPORARY == 0x00000100);
static_assert(FILE_ATTRIBUTE_REPARSE_POINT == 0x00000400);
static_assert(FILE_ATTRIBUTE_OFFLINE == 0x00001000);
static_assert(FILE_ATTRIBUTE_NOT_CONTENT_INDEXED == 0x00002000);
static_assert(OPEN_EXISTING == 3);
static_assert(FILE_FLAG_OPEN_REPARSE_POINT == 0x00200000);
static_assert(FILE_FLAG_BACKUP_SEMANTICS == 0x02000000);
static_assert(INVALID_FILE_ATTRIBUTES == 0xFFFFFFFF);
static_assert(FSCTL_SET_REPARSE_POINT == 0x000900A4);
static_assert(IO_REPARSE_TAG_MOUNT_POINT == 0xA0000003);
static_assert(MAXIMUM_REPARSE_DATA_BUFFER_SIZE == 16384);
static_assert(SE_UNKNOWN_OBJECT_TYPE == 0);
static_assert(SE_FILE_OBJECT == 1);
static_assert(LMEM_FIXED == 0x0000);
static_assert(LMEM_ZEROINIT == 0x0040);
static_assert(LPTR == 0x0040);
static_assert(FORMAT_MESSAGE_ALLOCATE_BUFFER == 0x00000100);
static_assert(FORMAT_MESSAGE_IGNORE_INSERTS == 0x00000200);
static_assert(FORMAT_MESSAGE_FROM_SYSTEM == 0x00001000);

// wincon.h
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
static_assert(ERROR_BAD_NETPATH == 53);
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
static_assert(ERROR_PROCESS_ABORTED == 1067);
static_assert(ERROR_NO_UNICODE_TRANSLATION == 1113);
static_assert(ERROR_SHUTDOWN_IN_PROGRESS == 1115);
static_assert(ERROR_NOT_ALL_ASSIGNED == 1300);
static_assert(ERROR_UNKNOWN_REVISION == 1305);
static_assert(ERROR_INVALID_OWNER == 1307);
static_assert(ERROR_NO_SUCH_PRIVILEGE == 1313);
static_assert(ERROR_PRIVILEGE_NOT_HELD == 1314);
static_assert(ERROR_NONE_MAPPED == 1332);
static_assert(ERROR_INVALID_ACL == 1336);
static_assert(ERROR_INVALID_SID == 1337);
static_assert(ERROR_INVALID_SECURITY_DESCR == 1338);
static_assert(ERROR_BAD_DESCRIPTOR_FORMAT == 1361);
static_assert(ERROR_INVALID_WINDOW_HANDLE == 1400);
static_assert(ERROR_CONTROL_ID_NOT_FOUND == 1421);
static_assert(ERROR_RESOURCE_TYPE_NOT_FOUND == 1813);
static_assert(ERROR_RESOURCE_NAME_NOT_FOUND == 1814);
static_assert(ERROR_NOT_ENOUGH_QUOTA == 1816);
static_assert(ERROR_CANT_ACCESS_FILE == 1920);
static_assert(ERROR_CANT_RESOLVE_FILENAME == 1921);
static_assert(ERROR_INVALID_REPARSE_DATA == 4392);
static_assert(ERROR_REPARSE_TAG_INVALID == 4393);
static_assert(ERROR_REPARSE_TAG_MISMATCH == 4394);
static_assert(S_OK == 0);
static_assert(S_FALSE == 1);
static_assert(E_NOINTERFACE == static_cast<HRESULT>(0x80004002));
static_assert(E_OUTOFMEMORY == static_cast<HRESULT>(0x8007000E));
static_assert(REGDB_E_CLASSNOTREG == static_cast<HRESULT>(0x80040154));
static_assert(CO_E_NOTINITIALIZED == static_cast<HRESULT>(0x800401F0));
static_assert(SUCCEEDED(S_OK) && SUCCEEDED(S_FALSE) && !SUCCEEDED(E_NOINTERFACE));
static_assert(!FAILED(S_OK) && !FAILED(S_FALSE) && FAILED(E_NOINTERFACE));

// wingdi.h
static_assert(RGB(0x12, 0x34, 0x56) == 0x563412);
static_assert(CLR_INVALID == 0xFFFFFFFF);
static_assert(TRANSPARENT == 1);
static_assert(OPAQUE == 2);
static_assert(WHITE_BRUSH == 0);
static_assert(NULL_BRUSH == 5);

// winnls.h
static_assert(CP_ACP == 0);

// winnt.h
static_assert(TOKEN_QUERY == 0x0008);
static_assert(TOKEN_ADJUST_PRIVILEGES == 0x0020);
static_assert(SE_PRIVILEGE_ENABLED == 0x00000002);
static_assert(ANYSIZE_ARRAY == 1);
static_assert(DELETE == 0x00010000);
static_assert(READ_CONTROL == 0x00020000);
static_assert(WRITE_DAC == 0x00040000);
static_assert(WRITE_OWNER == 0x00080000);
static_assert(SYNCHRONIZE == 0x00100000);
static_assert(STANDARD_RIGHTS_REQUIRED == 0x000F0000);
static_assert(ACCESS_SYSTEM_SECURITY == 0x01000000);
static_assert(GENERIC_READ == 0x80000000);
static_assert(GENERIC_WRITE == 0x40000000);
static_assert(GENERIC_EXECUTE == 0x20000000);
static_assert(GENERIC_ALL == 0x10000000);
static_assert(FILE_READ_DATA == 0x0001);
static_assert(FILE_LIST_DIRECTORY == 0x0001);
static_assert(FILE_WRITE_DATA == 0x0002);
static_assert(FILE_ADD_FILE == 0x0002);
static_assert(FILE_APPEND_DATA == 0x0004);
static_assert(FILE_ADD_SUBDIRECTORY == 0x0004);
static_assert(FILE_READ_EA == 0x0008);
static_assert(FILE_WRITE_EA == 0x0010);
static_assert(FILE_EXECUTE == 0x0020);
static_assert(FILE_TRAVERSE == 0x0020);
static_assert(FILE_DELETE_CHILD == 0x0040);
static_assert(FILE_READ_ATTRIBUTES == 0x0080);
static_assert(FILE_WRITE_ATTRIBUTES == 0x0100);
static_assert(SID_REVISION == 1);
static_assert(SID_MAX_SUB_AUTHORITIES == 15);
static_assert(SECURITY_DESCRIPTOR_REVISION == 1);
static_assert(ACL_REVISION == 2);
static_assert(ACL_REVISION_DS == 4);
static_assert(OWNER_SECURITY_INFORMATION == 0x00000001);
static_assert(GROUP_SECURITY_INFORMATION == 0x00000002);
static_assert(DACL_SECURITY_INFORMATION == 0x00000004);
static_assert(SACL_SECURITY_INFORMATION == 0x00000008);
static_assert(UNPROTECTED_SACL_SECURITY_INFORMATION == 0x10000000);
static_assert(UNPROTECTED_DACL_SECURITY_INFORMATION == 0x20000000);
static_assert(PROTECTED_SACL_SECURITY_INFORMATION == 0x40000000);
static_assert(PROTECTED_DACL_SECURITY_INFORMATION == 0x80000000);
static_assert(SE_DACL_PRESENT == 0x0004);
static_assert(SE_DACL_DEFAULTED == 0x0008);
static_assert(SE_SACL_PRESENT == 0x0010);
static_assert(SE_SACL_DEFAULTED == 0x0020);
static_assert(SE_DACL_AUTO_INHERIT_REQ == 0x0100);
static_assert(SE_SACL_AUTO_INHERIT_REQ == 0x0200);
static_assert(SE_DACL_AUTO_INHERITED == 0x0400);
static_assert(SE_SACL_AUTO_INHERITED == 0x0800);
static_assert(SE_DACL_PROTECTED == 0x1000);
static_assert(SE_SACL_PROTECTED == 0x2000);
static_assert(SE_SELF_RELATIVE == 0x8000);
static_assert(ACCESS_ALLOWED_ACE_TYPE == 0x0);
static_assert(ACCESS_DENIED_ACE_TYPE == 0x1);
static_assert(SYSTEM_AUDIT_ACE_TYPE == 0x2);
static_assert(SYSTEM_ALARM_ACE_TYPE == 0x3);
static_assert(ACCESS_ALLOWED_OBJECT_ACE_TYPE == 0x5);
static_assert(ACCESS_DENIED_OBJECT_ACE_TYPE == 0x6);
static_assert(SYSTEM_AUDIT_OBJECT_ACE_TYPE == 0x7);
static_assert(SYSTEM_ALARM_OBJECT_ACE_TYPE == 0x8);
static_assert(ACCESS_ALLOWED_CALLBACK_ACE_TYPE == 0x9);
static_assert(ACCESS_DENIED_CALLBACK_ACE_TYPE == 0xA);
static_assert(ACCESS_ALLOWED_CALLBACK_OBJECT_ACE_TYPE == 0xB);
static_assert(ACCESS_DENIED_CALLBACK_OBJECT_ACE_TYPE == 0xC);
static_assert(SYSTEM_AUDIT_CALLBACK_ACE_TYPE == 0xD);
static_assert(SYSTEM_AUDIT_CALLBACK_OBJECT_ACE_TYPE == 0xF);
static_assert(SYSTEM_MANDATORY_LABEL_ACE_TYPE == 0x11);
static_assert(SYSTEM_RESOURCE_ATTRIBUTE_ACE_TYPE == 0x12);
static_assert(SYSTEM_SCOPED_POLICY_ID_ACE_TYPE == 0x13);
static_assert(OBJECT_INHERIT_ACE == 0x01);
static_assert(CONTAINER_INHERIT_ACE == 0x02);
static_assert(NO_PROPAGATE_INHERIT_ACE == 0x04);
static_assert(INHERIT_ONLY_ACE == 0x08);
static_assert(INHERITED_ACE == 0x10);
static_assert(SUCCESSFUL_ACCESS_ACE_FLAG == 0x40);
static_assert(FAILED_ACCESS_ACE_FLAG == 0x80);
static_assert(ACE_OBJECT_TYPE_PRESENT == 0x1);
static_assert(ACE_INHERITED_OBJECT_TYPE_PRESENT == 0x2);
static_assert(SYSTEM_MANDATORY_LABEL_NO_WRITE_UP == 0x1);
static_assert(SYSTEM_MANDATORY_LABEL_NO_READ_UP == 0x2);
static_assert(SYSTEM_MANDATORY_LABEL_NO_EXECUTE_UP == 0x4);
static_assert(STANDARD_RIGHTS_READ == 0x00020000);
static_assert(STANDARD_RIGHTS_WRITE == 0x00020000);
static_assert(STANDARD_RIGHTS_EXECUTE == 0x00020000);
static_assert(FILE_ALL_ACCESS == 0x001F01FF);
static_assert(FILE_GENERIC_READ == 0x00120089);
static_assert(FILE_GENERIC_WRITE == 0x00120116);
static_assert(FILE_GENERIC_EXECUTE == 0x001200A0);
static_assert(SidTypeUser == 1);
static_assert(SidTypeAlias == 4);
static_assert(SidTypeWellKnownGroup == 5);
static_assert(SidTypeInvalid == 7);
static_assert(SidTypeUnknown == 8);
static_assert(VER_PLATFORM_WIN32_NT == 2);
static_assert(VER_NT_SERVER == 3);
static_assert(PROCESSOR_ARCHITECTURE_IA64 == 6);
static_assert(PROCESSOR_ARCHITECTURE_AMD64 == 9);
static_assert(LANG_NEUTRAL == 0x00);
static_assert(SUBLANG_DEFAULT == 0x01);

// winuser.h
static_assert(WM_DESTROY == 0x0002);
static_assert(WM_PAINT == 0x000F);
static_assert(WM_QUIT == 0x0012);
static_assert(WM_SETFONT == 0x0030);
static_assert(WM_SETICON == 0x0080);
static_assert(WM_NCDESTROY == 0x0082);
static_assert(WM_KEYDOWN == 0x0100);
static_assert(WM_INITDIALOG == 0x0110);
static_assert(WM_COMMAND == 0x0111);
static_assert(WM_TIMER == 0x0113);
static_assert(WM_CTLCOLOREDIT == 0x0133);
static_assert(WM_CTLCOLORBTN == 0x0135);
static_assert(WM_CTLCOLORSTATIC == 0x0138);
static_assert(WM_USER == 0x0400);
static_assert(ICON_SMALL == 0);
static_assert(ICON_BIG == 1);
static_assert(VK_RETURN == 0x0D);
static_assert(VK_ESCAPE == 0x1B);
static_assert(SW_HIDE == 0);
static_assert(SW_SHOWNORMAL == 1);
static_assert(SW_SHOW == 5);
static_assert(SW_SHOWDEFAULT == 10);
static_assert(SWP_NOSIZE == 0x0001);
static_assert(SWP_NOZORDER == 0x0004);
static_assert(SWP_NOACTIVATE == 0x0010);
static_assert(SPI_GETWORKAREA == 0x0030);
static_assert(DWLP_MSGRESULT == 0);
static_assert(DWLP_DLGPROC == 8);
static_assert(DWLP_USER == 16);
static_assert(WS_TABSTOP == 0x00010000);
static_assert(WS_GROUP == 0x00020000);
static_assert(WS_VSCROLL == 0x00200000);
static_assert(WS_BORDER == 0x00800000);
static_assert(WS_CAPTION == 0x00C00000);
static_assert(WS_VISIBLE == 0x10000000);
static_assert(WS_CHILD == 0x40000000);
static_assert(WS_POPUP == 0x80000000);
static_assert(WS_EX_TOPMOST == 0x00000008);
static_assert(DS_FIXEDSYS == 0x0008);
static_assert(DS_SETFONT == 0x0040);
static_assert(DS_MODALFRAME == 0x0080);
static_assert(BS_PUSHBUTTON == 0x0000);
static_assert(BS_DEFPUSHBUTTON == 0x0001);
static_assert(BN_CLICKED == 0);
static_assert(ES_LEFT == 0x0000);
static_assert(ES_MULTILINE == 0x0004);
static_assert(ES_AUTOVSCROLL == 0x0040);
static_assert(ES_READONLY == 0x0800);
static_assert(SS_LEFT == 0x0000);
static_assert(EM_SETSEL == 0x00B1);
static_assert(EM_SCROLLCARET == 0x00B7);
static_assert(EM_REPLACESEL == 0x00C2);
static_assert(EN_CHANGE == 0x0300);
static_assert(EN_UPDATE == 0x0400);
static_assert(EN_MAXTEXT == 0x0501);
static_assert(MB_OK == 0x00000000);
static_assert(MB_OKCANCEL == 0x00000001);
static_assert(MB_CANCELTRYCONTINUE == 0x00000006);
static_assert(MB_ICONERROR == 0x00000010);
static_assert(MB_ICONQUESTION == 0x00000020);
static_assert(MB_ICONWARNING == 0x00000030);
static_assert(IDOK == 1);
static_assert(IDCANCEL == 2);
static_assert(IDTRYAGAIN == 10);
static_assert(IDCONTINUE == 11);

static_assert(LOWORD(0x12345678) == 0x5678);
static_assert(HIWORD(0x12345678) == 0x1234);
static_assert(MAKELONG(0x5678, 0x9234) == static_cast<LONG>(0x92345678));
static_assert(MAKEWPARAM(0x5678, 0x9234) == 0x92345678);
static_assert(MAKELPARAM(0, 100) == 0x640000);
static_assert(TRUE == 1 && FALSE == 0);
static_assert(MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT) == 0x0400);
static_assert(MAKELANGID(0x04, 0x02) == 2052);
static_assert(std::string_view(SE_BACKUP_NAME) == "SeBackupPrivilege");
static_assert(std::string_view(SE_RESTORE_NAME) == "SeRestorePrivilege");
static_assert(std::string_view(SE_SECURITY_NAME) == "SeSecurityPrivilege");
static_assert(std::string_view(SE_TAKE_OWNERSHIP_NAME) == "SeTakeOwnershipPrivilege");

TEST(SdkConstants, NumbersOfResourcesAreTheirNames) {
  EXPECT_EQ(reinterpret_cast<uintptr_t>(MAKEINTRESOURCEW(101)), 101u);
}

TEST(SdkConstants, InvalidHandleIsAllOnes) {
  EXPECT_EQ(reinterpret_cast<intptr_t>(INVALID_HANDLE_VALUE), -1);
}

}  // namespace
