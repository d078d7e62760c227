// Directories of the C runtime.
#ifndef SIMULATOR_INCLUDE_DIRECT_H_
#define SIMULATOR_INCLUDE_DIRECT_H_

// Makes one level. -1 with errno on failure.
int _mkdir(const char* path);

#endif  // SIMULATOR_INCLUDE_DIRECT_H_
