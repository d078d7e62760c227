// A rehearsal on a server of many files: the memory that one of them takes.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <vector>

#include "load/load_size.h"
#include "load/memory_use.h"
#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "rehearsal/report/report_descriptors.h"
#include "simulator/model/processes/own_process.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/lost_messages_simulated.h"
#include "support/process.h"

namespace load {
namespace {

struct Rehearsed {
  size_t objects;  // of the source
  size_t equal;    // to the source, after the run
  size_t bytes;    // the most that were in use
};

// As ./run does it, with so many files in a folder of the second volume and in folders below it.
Rehearsed Rehearse(int files) {
  constexpr int kFilesPerFolder = 100;
  simulator::Scenario scenario =
      simulator::ReadScenario(std::filesystem::path(LOAD_DIR) / "small_server.json");
  simulator::ScenarioObject& folder =
      scenario.disks.at(1).partitions.at(0).volume->source->folders.at(0);
  folder.files = files;
  folder.folders = files / kFilesPerFolder;

  const tests::NewProcess process;
  TakeHighestHeapUse();
  const size_t bytes_before = HeapInUse();
  const size_t blocks_before = HeapBlocksInUse();
  simulator::Server server;
  server.calls().KeepTrace(false);
  const std::vector<simulator::SourceVolume> sources = simulator::Build(scenario, server);
  server.own_process().Run(
      [] { return ::wWinMain(simulator::ProgramModule(), nullptr, nullptr, SW_SHOWNORMAL); });
  const simulator::DescriptorOutcome outcome = simulator::GatherDescriptors(sources, server);
  tests::ReleaseLost(server);
  // malloc keeps a word of its own before each block.
  const size_t words = Growth(blocks_before, HeapBlocksInUse()) * sizeof(size_t);
  return {outcome.objects, outcome.objects - outcome.differences.size(),
          Growth(bytes_before, TakeHighestHeapUse()) + words};
}

TEST(ManyFiles, TakeAtMost500BytesEach) {
  constexpr size_t kMostBytes = 500;
  const Rehearsed few = Rehearse(100);
  const Rehearsed many = Rehearse(Size(5'000, 200'000, 1'000'000));
  EXPECT_EQ(many.equal, many.objects);
  const size_t objects = many.objects - few.objects;
  RecordProperty("bytes_of_an_object", static_cast<int>((many.bytes - few.bytes) / objects));
  EXPECT_LE(many.bytes - few.bytes, kMostBytes * objects);
}

}  // namespace
}  // namespace load
