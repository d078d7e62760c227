#include "simulator/model/desktop/resources.h"

#include <cstdint>
#include <utility>

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/desktop/resource_dialog.h"

// The program's compiled resources, see program_resources.S.
extern "C" const char simulated_program_resources[];
extern "C" const char simulated_program_resources_end[];

namespace simulator {
namespace {

// https://learn.microsoft.com/windows/win32/menurc/resource-types
enum ResourceType : WORD { kDialog = 5, kStrings = 6, kIconGroup = 14 };

constexpr size_t kAlignment = 4;
constexpr UINT kStringsOfBlock = 16;

struct ResourceHeader {
  uint32_t data_size = 0;
  WORD type = 0;
  WORD name = 0;
  LANGID language = 0;
};

// Types and names are 0xFFFF and a number, or a text.
WORD TakeNumber(ByteReader& bytes) {
  constexpr WORD kIsNumber = 0xFFFF;
  if (bytes.Take<WORD>() != kIsNumber) Unsupported("a resource whose type or name is a text");
  return bytes.Take<WORD>();
}

// RESOURCEHEADER
ResourceHeader TakeHeader(ByteReader& bytes) {
  ResourceHeader header;
  header.data_size = bytes.Take<uint32_t>();
  bytes.Take<uint32_t>();  // HeaderSize: the same for all whose type and name are numbers
  header.type = TakeNumber(bytes);
  header.name = TakeNumber(bytes);
  bytes.Take<uint32_t>();  // DataVersion
  bytes.Take<WORD>();      // MemoryFlags
  header.language = bytes.Take<LANGID>();
  bytes.Take<uint64_t>();  // Version, Characteristics
  return header;
}

// A block of the string table: sixteen lengths, each with its characters.
void ReadStrings(const ResourceHeader& header, ByteReader& block, Resources* resources) {
  for (UINT i = 0; i < kStringsOfBlock; ++i) {
    const WORD length = block.Take<WORD>();
    std::u16string text;
    for (WORD unit = 0; unit < length && block.ok(); ++unit) text += block.Take<char16_t>();
    if (length == 0) continue;
    const UINT id = (header.name - 1u) * kStringsOfBlock + i;
    resources->strings[{header.language, id}] = Utf8FromUtf16(text);
  }
}

void ReadResource(const ResourceHeader& header, ByteReader& data, Resources* resources) {
  const ResourceKey key{header.language, header.name};
  if (header.type == kStrings) ReadStrings(header, data, resources);
  if (header.type == kDialog) resources->dialogs[key] = ReadDialog(data);
  if (header.type == kIconGroup) resources->icons.insert(key);
}

}  // namespace

Resources ReadResources(std::string_view bytes) {
  Resources resources;
  ByteReader file(bytes);
  while (file.ok() && !file.rest().empty()) {
    const ResourceHeader header = TakeHeader(file);
    ByteReader data(file.Take(header.data_size));
    if (file.ok()) ReadResource(header, data, &resources);
    file.Take((kAlignment - header.data_size % kAlignment) % kAlignment);
    if (!data.ok()) file.Fail();
  }
  if (!file.ok()) Unsupported("resources that are not well-formed");
  return resources;
}

const Resources& ProgramResources() {
  static const Resources resources = ReadResources(
      {simulated_program_resources,
       static_cast<size_t>(simulated_program_resources_end - simulated_program_resources)});
  return resources;
}

}  // namespace simulator
