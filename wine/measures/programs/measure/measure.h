// What the program `measure` does, and what its parts share.
#ifndef WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_
#define WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "common/owner.h"

namespace benchmarks {

// Each part prints lines of a name and a number of microseconds, "program 1234", and returns the
// exit code. `arguments` are those behind the part's own name.
using Arguments = std::vector<std::string>;

// ROUNDS PROGRAM REFERENCE: from the start of each to its first painted dialog, in turn.
int MeasureStart(const Arguments& arguments);
// PROGRAM: from its start to its end; every box is answered with OK as soon as it is there.
int MeasureWholeRun(const Arguments& arguments);
// FILE LIST...: the command lines of the file, one a line, run one after another ("tools"), and the
// bare calls for the lines of the lists ("descriptors").
int MeasureTools(const Arguments& arguments);
// ROUNDS LIST: the list restored by the program's engine and by bare calls, in turn.
int MeasureLists(const Arguments& arguments);

int64_t Microseconds();  // since some time or other

void Tell(const std::string& name, int64_t microseconds);

// Throws std::runtime_error when it cannot be started.
common::UniqueHandle StartProgram(const std::string& path);

}  // namespace benchmarks

#endif  // WINE_MEASURES_PROGRAMS_MEASURE_MEASURE_H_
