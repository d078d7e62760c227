#include <optional>

#include "simulator/model/boot/disks.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/model/files/volume.h"
#include "simulator/tools/diskpart_parts.h"
#include "simulator/tools/machine.h"
#include "simulator/tools/tools.h"

namespace simulator {
namespace {

constexpr DWORD kBadParameters = 2;
constexpr DWORD kNoScript = 3;
constexpr DWORD kCommandFailed = 5;

// The state that the commands of one script share.
class Session {
 public:
  explicit Session(Machine& machine) : machine_(machine) {}

  // False when the command failed; Output() then ends with the reason.
  bool Execute(const DiskpartCommand& command) {
    switch (command.verb) {
      case DiskpartVerb::kNothing:
        return true;
      case DiskpartVerb::kListDisk:
        output_ += DiskListing(machine_.disks(),
                               disk_ == nullptr ? std::nullopt : std::optional(disk_->number),
                               machine_.system());
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
    output_ += "\r\n" + DiskpartVersion(machine_.system());
    return false;
  }

  const std::string& Output() const { return output_; }

 private:
  bool Done(std::string_view text) {
    output_ += "\r\n" + std::string(text) + "\r\n";
    return true;
  }

  bool Fail(std::string_view text) {
    Done(text);
    return false;
  }

  bool SelectDisk(int number) {
    disk_ = nullptr;
    partition_ = nullptr;
    for (const Disk& disk : machine_.disks()) {
      if (disk.number == number) disk_ = &disk;
    }
    if (disk_ == nullptr) {
      return Fail("The disk you specified is not valid.\r\n\r\nThere is no disk selected.");
    }
    return Done(SelectedDiskText(number, machine_.system()));
  }

  bool SelectPartition(int number) {
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

  bool DetailDisk() {
    if (disk_ == nullptr) {
      return Fail("There is no disk selected.\r\nPlease select a disk and try again.");
    }
    output_ += DiskDetail(*disk_, SelectedVolume(), machine_);
    return true;
  }

  // The volume of the selected partition; null when it shows none. On a dynamic disk, partitions
  // and volumes are selected independently.
  Volume* SelectedVolume() const {
    const bool is_shown = partition_ != nullptr && disk_->online && !disk_->dynamic;
    return is_shown ? partition_->volume.get() : nullptr;
  }

  bool Assign(std::optional<char> letter) {
    constexpr std::string_view kAssigned =
        "DiskPart successfully assigned the drive letter or mount point.";
    const Volume* const volume = SelectedVolume();
    if (volume == nullptr) {
      return Fail("There is no volume selected.\r\nPlease select a volume and try again.");
    }
    const std::optional<char> present = machine_.LetterOf(*volume);
    if (present && (!letter || letter == present)) return Done(kAssigned);
    if (!letter) letter = machine_.FreeLetter();
    if (!letter || machine_.VolumeAt(*letter) != nullptr) {
      return Fail("The specified drive letter is not free to be assigned.");
    }
    if (present && partition_->volume == WindowsVolume(machine_)) {
      return Fail("DiskPart cannot change the drive letter of a boot or paging file volume.");
    }
    if (present) machine_.Unmount(*present);
    machine_.Mount(*letter, partition_->volume);
    return Done(kAssigned);
  }

  bool Remove() {
    const Volume* const volume = SelectedVolume();
    if (volume == nullptr) {
      return Fail("There is no volume selected.\r\nPlease select a volume and try again.");
    }
    const std::optional<char> letter = machine_.LetterOf(*volume);
    if (!letter) return Fail("There is no drive letter or mount point to remove.");
    if (partition_->volume == WindowsVolume(machine_)) {
      return Fail("DiskPart cannot remove the drive letter of a boot or paging file volume.");
    }
    machine_.Unmount(*letter);
    return Done("DiskPart successfully removed the drive letter or mount point.");
  }

  Machine& machine_;
  const Disk* disk_ = nullptr;
  const Partition* partition_ = nullptr;
  std::string output_;
};

}  // namespace

ToolResult RunDiskpartScript(std::string_view script, Machine& machine) {
  Session session(machine);
  const std::string banner = DiskpartBanner(machine.system());
  while (!script.empty()) {
    const size_t end = script.find('\n');
    const DiskpartCommand command = ParseDiskpartCommand(script.substr(0, end));
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
    if (!session.Execute(command)) return {banner + session.Output(), kCommandFailed};
    if (command.verb == DiskpartVerb::kExit) break;
  }
  return {banner + session.Output(), 0};
}

ToolResult RunDiskpart(const std::vector<std::string>& arguments, Machine& machine) {
  if (arguments.empty()) Unsupported("diskpart: commands from the standard input");
  const std::string banner = DiskpartBanner(machine.system());
  if (arguments.size() != 2 || (arguments[0] != "/s" && arguments[0] != "/S")) {
    return {banner +
                "\r\n"
                "Microsoft DiskPart syntax:\r\n"
                "\tdiskpart [/s <script>] [/?]\r\n"
                "\r\n"
                "\t/s <script> - Use a DiskPart script.\r\n"
                "\t/?          - Show this help screen.\r\n",
            kBadParameters};
  }
  std::string script;
  if (machine.ReadFrom(arguments[1], &script) != ERROR_SUCCESS) {
    return {banner + "\r\nError opening script file: " + arguments[1] + "\r\n", kNoScript};
  }
  return RunDiskpartScript(script, machine);
}

}  // namespace simulator
