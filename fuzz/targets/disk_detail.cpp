// What diskpart prints for "detail disk".
#include <string>

#include "common/win/diskpart_output.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"

namespace fuzz {

void DiskDetail(std::string_view bytes) {
  char letter = '?';
  bool has_volume = false;
  common::win::ParseDiskDetail(bytes, letter, has_volume);
  Expect(letter == 0 || (letter >= 'c' && letter <= 'z'), "a letter is one from c to z");
  Expect(letter == 0 || has_volume, "a letter is a volume's");
  Expect(!has_volume || bytes.find("GB") != std::string_view::npos,
         "a volume has a size in gigabytes");

  // The first letter decides: what comes behind it does not count.
  if (letter == 0) return;
  char same_letter = 0;
  common::win::ParseDiskDetail(
      std::string(bytes) + "\r\n  Volume 9     Q   x  NTFS  p  1 GB  x\r\n", same_letter,
      has_volume);
  Expect(same_letter == letter, "the first volume's letter is the disk's");
}

}  // namespace fuzz
