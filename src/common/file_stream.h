// The program's text file stream. The C runtime converts CR LF to LF when it reads and LF to CR LF
// when it writes.
#ifndef COMMON_FILE_STREAM_H_
#define COMMON_FILE_STREAM_H_

#ifdef _WIN32

#include <fstream>

namespace common {
using FileStream = std::fstream;
}

#else

#include <simulated_fstream.h>

namespace common {
using FileStream = simulator::FileStream;
}

#endif

#endif  // COMMON_FILE_STREAM_H_
