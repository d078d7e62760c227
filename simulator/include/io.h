// Low-level files of the C runtime.
#ifndef SIMULATOR_INCLUDE_IO_H_
#define SIMULATOR_INCLUDE_IO_H_

// Mode 0 asks whether the path exists. -1 with errno when it does not.
int _access(const char* path, int mode);

#endif  // SIMULATOR_INCLUDE_IO_H_
