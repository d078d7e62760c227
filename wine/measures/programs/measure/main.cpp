// measure PART ARGUMENT...: see measure.h.
#include <cstdio>
#include <exception>
#include <map>

#include "wine/measures/programs/measure/measure.h"

int main(int argc, char** argv) {
  const std::map<std::string, int (*)(const benchmarks::Arguments&)> parts = {
      {"start", &benchmarks::MeasureStart},
      {"run", &benchmarks::MeasureWholeRun},
      {"tools", &benchmarks::MeasureTools},
      {"lists", &benchmarks::MeasureLists}};
  const benchmarks::Arguments words(argv + 1, argv + argc);
  const auto part = words.empty() ? parts.end() : parts.find(words.front());
  if (part == parts.end()) return 2;
  // What is started below keeps no hold of them, and so of who reads what is printed here. The C
  // runtime has its handles already.
  for (const DWORD standard : {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    ::SetStdHandle(standard, nullptr);
  }
  try {
    return part->second({words.begin() + 1, words.end()});
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
