#include "simulator/tools/diskpart.h"

#include <optional>
#include <vector>

#include "simulator/model/server.h"
#include "simulator/model/unsupported.h"
#include "simulator/tools/diskpart_output.h"
#include "simulator/tools/diskpart_script.h"

namespace simulator {
namespace {

constexpr DWORD kBadParameters = 2;
constexpr DWORD kNoScript = 3;
constexpr DWORD kCommandFailed = 5;

// The state that the commands of one script share.
class Session {
 public:
  explicit Session(Server& server) : server_(server) {}

  // False when the command failed; Output() then ends with the reason.
  bool Execute(const DiskpartCommand& command);
  const std::string& Output() const { return output_; }

 private:
  bool Done(std::string_view text);
  bool Fail(std::string_view text);
  bool SelectDisk(int number);
  bool SelectPartition(int number);
  bool DetailDisk();
  bool Assign(std::optional<char> letter);
  bool Remove();
  // The volume of the selected partition; null when it shows none.
  Volume* SelectedVolume() const;

  Server& server_;
  const Disk* disk_ = nullptr;
  const Partition* partition_ = nullptr;
  std::string output_;
};

bool Session::Done(std::string_view text) {
  output_ += "\r\n" + std::string(text) + "\r\n";
  return true;
}

bool Session::Fail(std::string_view text) {
  Done(text);
  return false;
}

bool Session::Execute(const DiskpartCommand& command) {
  switch (command.verb) {
    case DiskpartVerb::kNothing:
      return true;
    case DiskpartVerb::kListDisk:
      output_ += DiskListing(server_.disks(),
                             disk_ == nullptr ? std::nullopt : std::optional(disk_->number),
                             server_.system());
      return true;
    case DiskpartVerb::kSelectDisk:
      return SelectDisk(command.number);
    case DiskpartVerb::kSelectPartition:
      return SelectPartition(command.number);
    case DiskpartVerb::kDetailDisk:
      return DetailDisk();
    case DiskpartVerb::kAssign:
      return Assign(command.letter);
    case DiskpartVerb::kRemove:
      return Remove();
    case DiskpartVerb::kExit:
      return Done("Leaving DiskPart...");
    case DiskpartVerb::kBadArguments:
      return Fail(
          "The arguments specified for this command are not valid.\r\n"
          "For more information on the command type: HELP " +
          command.help_topic);
    case DiskpartVerb::kUnknown:
      break;
  }
  // The real tool goes on with a list of all its commands.
  output_ += "\r\n" + DiskpartVersion(server_.system());
  return false;
}

bool Session::SelectDisk(int number) {
  disk_ = nullptr;
  partition_ = nullptr;
  for (const Disk& disk : server_.disks()) {
    if (disk.number == number) disk_ = &disk;
  }
  if (disk_ == nullptr) {
    return Fail("The disk you specified is not valid.\r\n\r\nThere is no disk selected.");
  }
  return Done("Disk " + std::to_string(number) + " is now the selected disk.");
}

bool Session::SelectPartition(int number) {
  partition_ = nullptr;
  if (disk_ == nullptr) {
    return Fail("There is no disk selected.\r\nPlease select a disk and try again.");
  }
  for (const Partition& partition : disk_->partitions) {
    if (partition.number == number) partition_ = &partition;
  }
  if (partition_ == nullptr) {
    return Fail(
        "The specified partition is not valid.\r\nPlease select a valid partition.\r\n\r\n"
        "There is no partition selected.");
  }
  return Done("Partition " + std::to_string(number) + " is now the selected partition.");
}

bool Session::DetailDisk() {
  if (disk_ == nullptr) {
    return Fail("There is no disk selected.\r\nPlease select a disk and try again.");
  }
  output_ +=
      DiskDetail(server_.disks(), *disk_, SelectedVolume(), server_.files(), server_.system());
  return true;
}

Volume* Session::SelectedVolume() const {
  return partition_ != nullptr && disk_->online ? partition_->volume.get() : nullptr;
}

bool Session::Assign(std::optional<char> letter) {
  constexpr std::string_view kAssigned =
      "DiskPart successfully assigned the drive letter or mount point.";
  const Volume* const volume = SelectedVolume();
  if (volume == nullptr) {
    return Fail("There is no volume selected.\r\nPlease select a volume and try again.");
  }
  Files& files = server_.files();
  const std::optional<char> present = files.LetterOf(*volume);
  if (present && (!letter || letter == present)) return Done(kAssigned);
  if (!letter) letter = files.FreeLetter();
  if (!letter || files.VolumeAt(*letter)) {
    return Fail("The specified drive letter is not free to be assigned.");
  }
  if (present && partition_->info == "Boot") {
    return Fail("DiskPart cannot change the drive letter of a boot or paging file volume.");
  }
  if (present) files.Unmount(*present);
  files.Mount(*letter, partition_->volume);
  return Done(kAssigned);
}

bool Session::Remove() {
  const Volume* const volume = SelectedVolume();
  if (volume == nullptr) {
    return Fail("There is no volume selected.\r\nPlease select a volume and try again.");
  }
  const std::optional<char> letter = server_.files().LetterOf(*volume);
  if (!letter) return Fail("There is no drive letter or mount point to remove.");
  if (partition_->info == "Boot") {
    return Fail("DiskPart cannot remove the drive letter of a boot or paging file volume.");
  }
  server_.files().Unmount(*letter);
  return Done("DiskPart successfully removed the drive letter or mount point.");
}

DWORD Main(Server& server, ChildProcess& child) {
  const std::vector<std::string> arguments = child.Arguments();
  if (arguments.size() == 1) Unsupported("diskpart: commands from the standard input");
  const std::string banner = DiskpartBanner(server.system());
  if (arguments.size() != 3 || (arguments[1] != "/s" && arguments[1] != "/S")) {
    child.WriteOutput(banner +
                      "\r\n"
                      "Microsoft DiskPart syntax:\r\n"
                      "\tdiskpart [/s <script>] [/?]\r\n"
                      "\r\n"
                      "\t/s <script> - Use a DiskPart script.\r\n"
                      "\t/?          - Show this help screen.\r\n");
    return kBadParameters;
  }
  const std::optional<std::string> script = server.files().Read(arguments[2]);
  if (!script) {
    child.WriteOutput(banner + "\r\nError opening script file: " + arguments[2] + "\r\n");
    return kNoScript;
  }
  return Finish(RunDiskpart(*script, server), child);
}

}  // namespace

ToolResult RunDiskpart(std::string_view script, Server& server) {
  Session session(server);
  const std::string banner = DiskpartBanner(server.system());
  while (!script.empty()) {
    const size_t end = script.find('\n');
    const DiskpartCommand command = ParseDiskpartCommand(script.substr(0, end));
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
    if (!session.Execute(command)) return {banner + session.Output(), kCommandFailed};
    if (command.verb == DiskpartVerb::kExit) break;
  }
  return {banner + session.Output(), 0};
}

Program DiskpartProgram() { return Main; }

}  // namespace simulator
