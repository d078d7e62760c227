// Low-level file functions of the C runtime.
#ifndef SIMULATOR_INCLUDE_IO_H_
#define SIMULATOR_INCLUDE_IO_H_

// With mode 0, tests whether the path exists. Returns 0, or -1 with errno set if it does not.
int _access(const char* path, int mode);

#endif  // SIMULATOR_INCLUDE_IO_H_
