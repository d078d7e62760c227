// A scenario file: it is refused by a ScenarioError or makes a server.
#include "rehearsal/description/scenario.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_letters.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/server.h"

namespace fuzz {
namespace {

// A file of the host, gone with the object.
class HostFile {
 public:
  explicit HostFile(std::string_view bytes) {
    std::ofstream stream(path_, std::ios::binary);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    Expect(stream.good(), "a scenario can be written");
  }
  ~HostFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  HostFile(const HostFile&) = delete;
  HostFile& operator=(const HostFile&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  const std::filesystem::path path_ = std::filesystem::temp_directory_path() /
                                      ("vantoro_fuzz_" + std::to_string(::getpid()) + ".json");
};

// A scenario may ask for a million files in a folder, and for the host's own.
bool IsSmall(const simulator::Scenario& scenario) {
  constexpr int kMostMade = 200;
  int made = 0;
  for (const auto& disk : scenario.disks) {
    for (const auto& partition : disk.partitions) {
      if (!partition.volume) continue;
      if (!partition.volume->import.empty()) return false;
      if (!partition.volume->source) continue;
      for (const auto& folder : partition.volume->source->folders) {
        if (folder.files > kMostMade || folder.folders > kMostMade) return false;
        made += folder.files + folder.folders;
      }
    }
  }
  return made <= kMostMade;
}

void BuildServer(const simulator::Scenario& scenario) {
  simulator::Server server;
  const auto sources = simulator::Build(scenario, server);
  Expect(server.disks().size() == scenario.disks.size(), "every disk is there");
  for (const auto& source : sources) {
    Expect(source.root != nullptr && source.copy != nullptr, "a source has a tree and a copy");
  }
  static_cast<void>(simulator::LetterReport(simulator::GatherLetters(
      scenario, simulator::GatherDisks(server), {}, simulator::LettersOn(server))));
}

}  // namespace

void Scenario(std::string_view bytes) {
  const HostFile file(bytes);
  try {
    const simulator::Scenario scenario = simulator::ReadScenario(file.path());
    if (IsSmall(scenario)) BuildServer(scenario);
  } catch (const simulator::ScenarioError& error) {
    const std::string_view message = error.what();
    Expect(message.find("expected") != std::string_view::npos, "an error says what was expected");
    Expect(message.find('\n') == std::string_view::npos, "an error is one line");
  }
}

}  // namespace fuzz
