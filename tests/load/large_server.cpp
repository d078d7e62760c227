#include "load/large_server.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "logger/b_logger.h"
#include "rehearsal/description/prepare_folder.h"
#include "restore/messages.h"
#include "restore/run.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/processes/processes.h"
#include "simulator/server_tools.h"
#include "support/descriptors_simulated.h"

namespace load {
namespace {

// Behind the first volume the privileges are off: these need none.
constexpr const char* kDescriptors[] = {
    "O:BAG:BAD:PAI(A;;FA;;;BA)",
    "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)",
    "O:BAG:BUD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1301bf;;;BU)",
    "O:BAG:BAD:PAI(D;;FW;;;BG)(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;AU)",
};
constexpr char kLastDescriptor[] = "O:BAG:BAD:PAI(A;;FA;;;BA)(A;;FR;;;WD)";

std::string LineOf(const std::string& path, const std::string& sddl) {
  return "\"" + path + "\",32,\"" + sddl + "\"\r\n";
}

// `block` so often, and `last`.
simulator::MakeBytes Repeated(const std::string& block, uint64_t times, const std::string& last) {
  return [=](uint64_t offset, char* buffer, size_t size) -> size_t {
    const uint64_t end = block.size() * times;
    if (offset < end) return block.copy(buffer, size, offset % block.size());
    return offset - end < last.size() ? last.copy(buffer, size, offset - end) : 0;
  };
}

}  // namespace

LargeServer::LargeServer(int volumes, uint64_t rounds) : rounds_(rounds) {
  server_.processes().Install("diskpart", simulator::DiskpartProgram());
  for (int volume = 0; volume < volumes; ++volume) AddVolume(volume);
  server_.calls().KeepTrace(false);
  server_.calls().Watch([this](std::string_view name, const std::string&) {
    if (name == "SetNamedSecurityInfoA") ++descriptors_set_;
    if (name == "PostMessageA") TakePosts();
  });
  constexpr uint64_t kLinesPerReport = 1000;
  percents_.reserve(static_cast<size_t>(volumes) * (LinesOfVolume() / kLinesPerReport + 10));
}

void LargeServer::AddVolume(int volume) {
  constexpr uint64_t kGigabyte = uint64_t{1} << 30;
  const char letter = LetterOf(volume);
  simulator::FileSystem& files = server_.file_system();
  if (letter != 'C') files.MountEmpty(letter);
  simulator::Disk disk;
  disk.number = volume;
  disk.size = 100 * kGigabyte;
  disk.partitions = {{1, 99 * kGigabyte, "", files.VolumeAt(letter)}};
  server_.disks().push_back(disk);

  const std::string root = std::string(1, letter) + ":\\";
  std::string block;
  for (uint64_t i = 0; i < kFiles; ++i) {
    const std::string path = root + "Data\\Report " + std::to_string(i) + ".docx";
    files.Write(path, "");
    block += LineOf(path, kDescriptors[i % std::size(kDescriptors)]);
  }
  files.Write(root + "Last.txt", "");

  const std::string folder = root + simulator::kPrepareFolder + "\\";
  files.Write(folder + "backup_info",
              std::string(1, letter) + "\r\n\r\n\r\n" + std::to_string(LinesOfVolume()) + "\r\n");
  files.Write(folder + simulator::JunctionListName(letter), "");
  files.WriteMade(folder + simulator::AclListName(letter),
                  Repeated(block, rounds_, LineOf(root + "Last.txt", kLastDescriptor)));
}

int32_t LargeServer::Run() {
  restore::SetDialog(window_);
  logger::BLogger logger("vantoro_restore", "");
  const int32_t result = restore::RestoreWorker(logger, window_, "", "");
  TakePosts();
  return result;
}

void LargeServer::TakePosts() {
  while (const auto posted = server_.desktop().Take(window_)) {
    if (posted->message == restore::WM_RESTORE_PROGRESS) {
      percents_.push_back(
          reinterpret_cast<const restore::ProgressRecord*>(posted->lparam)->percent);
      restore::ReleasePosted(posted->wparam, posted->lparam);
    }
  }
}

std::string LargeServer::Log() {
  return server_.files()
      .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
      .value_or("");
}

bool LargeServer::HasLastDescriptor(int volume) {
  const std::string path = std::string(1, LetterOf(volume)) + ":\\Last.txt";
  return tests::SddlOf(server_, path) == kLastDescriptor;
}

}  // namespace load
