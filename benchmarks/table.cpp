#include "table.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iostream>

namespace benchmarks {

double Median(std::vector<double> numbers) {
  if (numbers.empty()) return 0;
  const auto middle = numbers.begin() + static_cast<std::ptrdiff_t>(numbers.size() / 2);
  std::nth_element(numbers.begin(), middle, numbers.end());
  return *middle;
}

std::string Text(const char* format, double number) {
  char buffer[64];
  std::snprintf(buffer, sizeof(buffer), format, number);
  return buffer;
}

std::string Duration(double nanoseconds) {
  if (nanoseconds >= 1e9) return Text("%.3f s", nanoseconds / 1e9);
  if (nanoseconds >= 1e6) return Text("%.3f ms", nanoseconds / 1e6);
  return Text("%.3f us", nanoseconds / 1e3);
}

void PrintHeader() { PrintRow({"measured", "program", "reference", "ratio", "bound"}); }

void PrintRow(const std::vector<std::string>& cells) {
  static const int widths[] = {46, 12, 12, 9, 8};
  std::string row;
  for (size_t i = 0; i < cells.size(); ++i) {
    char buffer[128];
    std::snprintf(buffer, sizeof(buffer), i == 0 ? "%-*s" : "%*s", widths[i], cells[i].c_str());
    row += buffer;
  }
  std::cout << row << std::endl;
}

bool PrintRatio(const std::string& what, double measured, double reference, double bound) {
  const double ratio = measured / reference;
  const bool is_within = bound <= 0 || ratio <= bound;
  PrintRow({what, Duration(measured), Duration(reference),
            Text("%.3f", ratio) + (is_within ? "" : "!"),
            bound > 0 ? Text("%.2f", bound) : std::string("-")});
  return is_within;
}

}  // namespace benchmarks
