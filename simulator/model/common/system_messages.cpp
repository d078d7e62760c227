#include "simulator/model/common/system_messages.h"

namespace simulator {
namespace {

struct Message {
  DWORD error;
  std::string_view text;
};

constexpr Message kMessages[] = {
    {ERROR_SUCCESS, "The operation completed successfully."},
    {ERROR_INVALID_FUNCTION, "Incorrect function."},
    {ERROR_FILE_NOT_FOUND, "The system cannot find the file specified."},
    {ERROR_PATH_NOT_FOUND, "The system cannot find the path specified."},
    {ERROR_TOO_MANY_OPEN_FILES, "The system cannot open the file."},
    {ERROR_ACCESS_DENIED, "Access is denied."},
    {ERROR_INVALID_HANDLE, "The handle is invalid."},
    {ERROR_NOT_ENOUGH_MEMORY, "Not enough storage is available to process this command."},
    {ERROR_OUTOFMEMORY, "Not enough storage is available to complete this operation."},
    {ERROR_WRITE_PROTECT, "The media is write protected."},
    {ERROR_NOT_READY, "The device is not ready."},
    {ERROR_GEN_FAILURE, "A device attached to the system is not functioning."},
    {ERROR_SHARING_VIOLATION,
     "The process cannot access the file because it is being used by another process."},
    {ERROR_HANDLE_EOF, "Reached the end of the file."},
    {ERROR_HANDLE_DISK_FULL, "The disk is full."},
    {ERROR_NOT_SUPPORTED, "The request is not supported."},
    {ERROR_BAD_NETPATH, "The network path was not found."},
    {ERROR_FILE_EXISTS, "The file exists."},
    {ERROR_INVALID_PARAMETER, "The parameter is incorrect."},
    {ERROR_BROKEN_PIPE, "The pipe has been ended."},
    {ERROR_DISK_FULL, "There is not enough space on the disk."},
    {ERROR_INSUFFICIENT_BUFFER, "The data area passed to a system call is too small."},
    {ERROR_INVALID_NAME, "The filename, directory name, or volume label syntax is incorrect."},
    {ERROR_MOD_NOT_FOUND, "The specified module could not be found."},
    {ERROR_PROC_NOT_FOUND, "The specified procedure could not be found."},
    {ERROR_DIR_NOT_EMPTY, "The directory is not empty."},
    {ERROR_BAD_PATHNAME, "The specified path is invalid."},
    {ERROR_ALREADY_EXISTS, "Cannot create a file when that file already exists."},
    {ERROR_BAD_EXE_FORMAT, "%1 is not a valid Win32 application."},
    {ERROR_FILENAME_EXCED_RANGE, "The filename or extension is too long."},
    {ERROR_NO_DATA, "The pipe is being closed."},
    {ERROR_DIRECTORY, "The directory name is invalid."},
    {ERROR_MR_MID_NOT_FOUND,
     "The system cannot find message text for message number 0x%1 in the message file for %2."},
    {ERROR_NO_UNICODE_TRANSLATION,
     "No mapping for the Unicode character exists in the target multi-byte code page."},
    {ERROR_NOT_ALL_ASSIGNED, "Not all privileges or groups referenced are assigned to the caller."},
    {ERROR_UNKNOWN_REVISION, "The revision level is unknown."},
    {ERROR_INVALID_OWNER, "This security ID may not be assigned as the owner of this object."},
    {ERROR_NO_SUCH_PRIVILEGE, "A specified privilege does not exist."},
    {ERROR_PRIVILEGE_NOT_HELD, "A required privilege is not held by the client."},
    {ERROR_NONE_MAPPED, "No mapping between account names and security IDs was done."},
    {ERROR_INVALID_ACL, "The access control list (ACL) structure is invalid."},
    {ERROR_INVALID_SID, "The security ID structure is invalid."},
    {ERROR_INVALID_SECURITY_DESCR, "The security descriptor structure is invalid."},
    {ERROR_BAD_DESCRIPTOR_FORMAT,
     "A security descriptor is not in the right format (absolute or self-relative)."},
    {ERROR_INVALID_WINDOW_HANDLE, "Invalid window handle."},
    {ERROR_RESOURCE_NAME_NOT_FOUND,
     "The specified resource name cannot be found in the image file."},
    {ERROR_NOT_ENOUGH_QUOTA, "Not enough quota is available to process this command."},
    {ERROR_CANT_ACCESS_FILE, "The file cannot be accessed by the system."},
    {ERROR_CANT_RESOLVE_FILENAME, "The name of the file cannot be resolved by the system."},
    {ERROR_INVALID_REPARSE_DATA, "The data present in the reparse point buffer is invalid."},
    {ERROR_REPARSE_TAG_INVALID, "The tag present in the reparse point buffer is invalid."},
    {ERROR_REPARSE_TAG_MISMATCH,
     "There is a mismatch between the tag specified in the request and the tag present in the "
     "reparse point."},
};

}  // namespace

std::optional<std::string_view> SystemMessage(DWORD error) {
  for (const Message& message : kMessages) {
    if (message.error == error) return message.text;
  }
  return std::nullopt;
}

}  // namespace simulator
