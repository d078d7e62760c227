// Device control codes.
#ifndef SIMULATOR_INCLUDE_WINIOCTL_H_
#define SIMULATOR_INCLUDE_WINIOCTL_H_

// https://learn.microsoft.com/windows/win32/api/winioctl/ni-winioctl-fsctl_set_reparse_point
#define FSCTL_SET_REPARSE_POINT 0x000900A4

#endif  // SIMULATOR_INCLUDE_WINIOCTL_H_
