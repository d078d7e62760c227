// How much load the tests lay on.
#ifndef TESTS_LOAD_LOAD_SIZE_H_
#define TESTS_LOAD_LOAD_SIZE_H_

#include <cstdlib>
#include <string_view>

namespace load {

#if defined(VANTORO_CHECKS_ADDRESSES) || defined(VANTORO_CHECKS_THREADS)
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

// Of one measure: under a sanitizer, in every other run, and with VANTORO_LOAD=long.
template <typename Number>
Number Size(Number sanitized, Number usual, Number longest) {
  if (kIsSanitized) return sanitized;
  const char* const wish = std::getenv("VANTORO_LOAD");
  return wish != nullptr && std::string_view(wish) == "long" ? longest : usual;
}

}  // namespace load

#endif  // TESTS_LOAD_LOAD_SIZE_H_
