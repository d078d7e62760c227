// The parts of the program `measure`, and the functions that they share.
#ifndef WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_
#define WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "common/owner.h"

namespace benchmarks {

// Each part prints lines that consist of a name and a number of microseconds, "program 1234", and
// returns the exit code. `arguments` are those after the part's own name.
using Arguments = std::vector<std::string>;

// ROUNDS PROGRAM REFERENCE: measures the time from the start of each program to its first painted
// dialog, alternately.
int MeasureStart(const Arguments& arguments);
// PROGRAM: measures the time from the program's start to its end. Every message box is answered
// with OK as soon as it appears.
int MeasureWholeRun(const Arguments& arguments);
// FILE LIST...: measures the command lines of the file, one per line, run one after another
// ("tools"), and the API calls alone for the lines of the lists ("descriptors").
int MeasureTools(const Arguments& arguments);
// ROUNDS LIST: measures the restore of the list by the program's engine and by API calls alone,
// alternately.
int MeasureLists(const Arguments& arguments);

int64_t Microseconds();  // since an unspecified start

void Tell(const std::string& name, int64_t microseconds);

// Throws std::runtime_error if the program cannot be started.
common::UniqueHandle StartProgram(const std::string& path);

}  // namespace benchmarks

#endif  // WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_
