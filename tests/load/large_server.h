// A server of many volumes with long lists, which are made as they are read.
#ifndef TESTS_LOAD_LARGE_SERVER_H_
#define TESTS_LOAD_LARGE_SERVER_H_

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "simulator/model/desktop/desktop.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/process.h"

namespace load {

// Every line of a list names one of a hundred files, over and over, and the last line alone one
// more. Disks and letters are in order.
class LargeServer {
 public:
  static constexpr uint64_t kFiles = 100;

  // Volumes C, D and so on. A list has `rounds` times kFiles lines and the last one.
  LargeServer(int volumes, uint64_t rounds);
  LargeServer(const LargeServer&) = delete;
  LargeServer& operator=(const LargeServer&) = delete;

  // Runs the worker; its result. What it posts is taken as it comes.
  int32_t Run();

  uint64_t LinesOfVolume() const { return rounds_ * kFiles + 1; }
  // As Run has found them.
  const std::vector<double>& Percents() const { return percents_; }
  uint64_t DescriptorsSet() const { return descriptors_set_; }
  std::string Log();
  // Whether the last line of the volume's list has been restored.
  bool HasLastDescriptor(int volume);

 private:
  static char LetterOf(int volume) { return static_cast<char>('C' + volume); }
  void AddVolume(int volume);
  void TakePosts();

  const tests::NewProcess process_;
  simulator::Server server_;
  const tests::BootTools boot_tools_{server_};
  const uint64_t rounds_;
  const HWND window_ = server_.desktop().CreateWindow();
  std::vector<double> percents_;
  uint64_t descriptors_set_ = 0;
};

}  // namespace load

#endif  // TESTS_LOAD_LARGE_SERVER_H_
