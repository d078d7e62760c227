// The program's file stream.
#ifndef COMMON_FILE_STREAM_H_
#define COMMON_FILE_STREAM_H_

#ifdef _WIN32
#include <fstream>
#else
#include <simulated_fstream.h>
#endif

namespace common {

// A text file: the C runtime turns CR LF into LF as it reads and LF into CR LF as it writes.
#ifdef _WIN32
using FileStream = std::fstream;
#else
using FileStream = simulator::FileStream;
#endif

}  // namespace common

#endif  // COMMON_FILE_STREAM_H_
