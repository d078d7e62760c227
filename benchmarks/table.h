// The table that ./bench prints, and what goes into it.
#ifndef BENCHMARKS_TABLE_H_
#define BENCHMARKS_TABLE_H_

#include <string>
#include <vector>

namespace benchmarks {

// 0 of none.
double Median(std::vector<double> numbers);

// One number by a format of printf's.
std::string Text(const char* format, double number);
std::string Duration(double nanoseconds);

void PrintHeader();
// Five cells: what was measured, the program, the reference, their ratio, its bound.
void PrintRow(const std::vector<std::string>& cells);
// Of two durations in nanoseconds. A bound of 0 is none. Whether the ratio stays within it.
bool PrintRatio(const std::string& what, double measured, double reference, double bound);

}  // namespace benchmarks

#endif  // BENCHMARKS_TABLE_H_
