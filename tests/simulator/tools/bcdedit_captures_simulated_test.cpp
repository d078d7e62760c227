// The simulated boot configuration tool's listing against captures of the real one's. The captures
// hold LF where the tool prints CR LF, and most have lost their first empty line.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/server.h"
#include "simulator/server_tools.h"
#include "support/samples.h"
#include "support/test_names.h"

namespace simulator {
namespace {

constexpr char kCurrent[] = "{cccccccc-0000-0000-0000-000000000001}";
constexpr char kDefault[] = "{dddddddd-0000-0000-0000-000000000002}";

// Each with its CR; two empty ones in a row count as one, and those at the ends not at all.
std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find('\n'), text.size());
    const std::string line(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    const bool is_kept = line != "\r" || (!lines.empty() && lines.back() != "\r");
    if (is_kept) lines.push_back(line);
  }
  while (!lines.empty() && lines.back() == "\r") lines.pop_back();
  return lines;
}

std::string Identifier(const std::string& printed) {
  if (printed == "{current}") return kCurrent;
  return printed == "{default}" ? kDefault : printed;
}

BootEntryType TypeOf(std::string_view heading, const std::string& identifier) {
  if (identifier == "{bootmgr}") return BootEntryType::kManager;
  if (identifier == "{ntldr}") return BootEntryType::kLegacyLoader;
  for (const std::string_view sector : {"Real-mode Boot Sector", "实模式启动扇区"}) {
    if (heading.starts_with(sector)) return BootEntryType::kBootSector;
  }
  return BootEntryType::kLoader;
}

// The store that a listing with those lines shows.
BootStore ReadStore(const std::vector<std::string>& lines) {
  BootStore store;
  for (size_t i = 0; i < lines.size(); ++i) {
    if (i + 2 < lines.size() && lines[i + 1].starts_with("---")) {
      const std::string& named = lines[i + 2];
      const size_t brace = named.find('{');
      const std::string identifier = Identifier(named.substr(brace, named.find('\r') - brace));
      store.entries.push_back({TypeOf(lines[i], identifier), identifier, {}});
      i += 2;
    } else if (lines[i] != "\r") {
      std::vector<BootElement>& elements = store.entries.at(store.entries.size() - 1).elements;
      const size_t blank = lines[i].find(' ');
      const size_t value = lines[i].find_first_not_of(' ', blank);
      if (blank > 0) elements.push_back({lines[i].substr(0, blank), {}});
      elements.back().values.push_back(
          Identifier(lines[i].substr(value, lines[i].find('\r') - value)));
    }
  }
  return store;
}

struct Capture {
  const char* file;
  LANGID language;
  size_t entries;
};

std::ostream& operator<<(std::ostream& out, const Capture& test) { return out << test.file; }

constexpr Capture kCaptures[] = {
    {"de-DE-win10-bios-two-loaders.txt", 1031, 3},
    {"en-server-store-attached-disk.txt", 1033, 2},
    {"en-server2016-bios-cloud-device-unknown-boot.txt", 1033, 2},
    {"en-server2016-bios-cloud-gen1.txt", 1033, 2},
    {"en-server2022-uefi-secondary-plex.txt", 1033, 3},
    {"en-vista-bios-bootmgr-without-resumeobject.txt", 1033, 2},
    {"en-win10-bios-ntldr-added.txt", 1033, 3},
    {"en-win7-bios-three-entries-default-not-current.txt", 1033, 4},
    {"en-win8-bios-three-loaders-vhd.txt", 1033, 4},
    {"en-win8.1-uefi-bootmgr-path-changed.txt", 1033, 2},
    {"pt-PT-win7-bios-no-default.txt", 2070, 2},
    {"zh-CN-win10-bios-real-mode-boot-sector.txt", 2052, 3},
    {"zh-CN-win10-uefi-two-loaders-current-second.txt", 2052, 3},
};

class BcdeditCapture : public testing::TestWithParam<Capture> {};

TEST_P(BcdeditCapture, IsWhatTheListingOfItsStorePrints) {
  Server server;
  server.system().language = GetParam().language;
  const std::vector<std::string> captured =
      Lines(tests::ReadToolSample("bcdedit/", GetParam().file));
  server.boot() = {ReadStore(captured), kCurrent};
  EXPECT_EQ(server.boot().store.entries.size(), GetParam().entries);
  EXPECT_EQ(Lines(RunBcdedit({}, server).output), captured);
}

INSTANTIATE_TEST_SUITE_P(Captures, BcdeditCapture, testing::ValuesIn(kCaptures),
                         tests::NamedAsPrinted());

TEST(BcdeditCaptures, AreAllCompared) {
  EXPECT_EQ(tests::CountSamples("bcdedit"), static_cast<int>(std::size(kCaptures)));
}

}  // namespace
}  // namespace simulator
