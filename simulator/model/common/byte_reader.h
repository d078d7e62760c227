// Little-endian binary structures, read and written.
#ifndef SIMULATOR_MODEL_COMMON_BYTE_READER_H_
#define SIMULATOR_MODEL_COMMON_BYTE_READER_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace simulator {

template <typename Number>
void AppendNumber(Number number, std::string& bytes) {
  for (size_t i = 0; i < sizeof(Number); ++i) {
    bytes += static_cast<char>(static_cast<uint64_t>(number) >> 8 * i & 0xFF);
  }
}

// Reads from the front of the bytes. Once the remaining bytes do not suffice, every read returns
// zeros and ok() returns false.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : rest_(bytes) {}

  bool ok() const { return ok_; }
  std::string_view rest() const { return rest_; }
  void Fail() { ok_ = false; }

  std::string_view Take(size_t size) {
    ok_ = ok_ && size <= rest_.size();
    if (!ok_) return {};
    const std::string_view taken = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return taken;
  }

  template <typename Number>
  Number Take() {
    const std::string_view taken = Take(sizeof(Number));
    uint64_t number = 0;
    for (size_t i = 0; i < taken.size(); ++i) {
      number |= uint64_t{static_cast<uint8_t>(taken[i])} << 8 * i;
    }
    return static_cast<Number>(number);
  }

 private:
  std::string_view rest_;
  bool ok_ = true;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_COMMON_BYTE_READER_H_
