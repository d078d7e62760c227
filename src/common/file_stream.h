// The program's file stream: a text file. The C runtime turns CR LF into LF as it reads and LF into
// CR LF as it writes.
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
