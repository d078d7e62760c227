#include "simulator/tools/columns.h"

#include <algorithm>
#include <functional>
#include <iterator>

namespace simulator {
namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

}  // namespace

size_t CharacterCount(std::string_view text) {
  return static_cast<size_t>(std::count_if(text.begin(), text.end(), std::not_fn(IsContinuation)));
}

std::string LeftColumn(std::string_view text, size_t width) {
  size_t count = 0;
  size_t end = 0;
  for (; end < text.size(); ++end) {
    if (IsContinuation(text[end])) continue;
    if (count == width) break;
    ++count;
  }
  return std::string(text.substr(0, end)) + std::string(width - count, ' ');
}

std::string RightColumn(std::string_view text, size_t width) {
  const size_t count = CharacterCount(text);
  return std::string(count < width ? width - count : 0, ' ') + std::string(text);
}

std::string SizeText(uint64_t bytes) {
  constexpr const char* kUnits[] = {" B", " KB", " MB", " GB", " TB", " PB"};
  constexpr uint64_t kFirstTooLong = 10000;
  const char* const* unit = kUnits;
  while (bytes >= kFirstTooLong && unit + 1 != std::end(kUnits)) {
    bytes /= 1024;
    ++unit;
  }
  return std::to_string(bytes) + *unit;
}

}  // namespace simulator
