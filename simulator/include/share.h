// Sharing modes of the C runtime's _fsopen.
#ifndef SIMULATOR_INCLUDE_SHARE_H_
#define SIMULATOR_INCLUDE_SHARE_H_

#define _SH_DENYRW 0x10
#define _SH_DENYNO 0x40

#endif  // SIMULATOR_INCLUDE_SHARE_H_
