// Directory functions of the C runtime.
#ifndef SIMULATOR_INCLUDE_DIRECT_H_
#define SIMULATOR_INCLUDE_DIRECT_H_

// Creates one directory; its parent must exist. Returns 0, or -1 with errno set on failure.
int _mkdir(const char* path);

#endif  // SIMULATOR_INCLUDE_DIRECT_H_
