#include "rehearsal/description/scenario.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>

#include "rehearsal/description/scenario_boot.h"
#include "rehearsal/description/scenario_json.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/call_names.h"
#include "simulator/model/server.h"
#include "simulator/tools/diskpart_texts.h"

namespace simulator {
namespace {

constexpr int64_t kMaxDword = std::numeric_limits<DWORD>::max();

// What has been read so far.
struct Context {
  std::filesystem::path folder;  // of the scenario file
  std::vector<ScenarioDisk> disks;
  std::set<char> letters;
  std::set<char> source_letters;
  bool has_system_partition = false;
  bool uefi = false;  // the firmware, by the disk with that partition
};

std::optional<char> ReadLetter(const std::optional<JsonPlace>& place, std::set<char>& seen) {
  if (!place) return std::nullopt;
  const char letter = place->Letter();
  if (!seen.insert(letter).second) {
    place->Fail(std::string("a letter that no other volume has, not ") + letter + " again");
  }
  return letter;
}

std::vector<std::string> ReadLines(const JsonPlace& place) {
  std::vector<std::string> lines;
  for (const JsonPlace& element : place.Elements()) {
    lines.push_back(element.Text());
    if (lines.back().find_first_of("\r\n") != std::string::npos) element.Fail("one line of text");
  }
  return lines;
}

ScenarioVolume ReadVolume(const JsonPlace& place, Context& context) {
  place.AllowKeys({"label", "file_system", "letter", "source_letter", "drive_type", "backup_info",
                   "import", "source", "lost", "unreadable"});
  ScenarioVolume volume;
  if (const auto label = place.Find("label")) volume.label = label->Text();
  if (const auto name = place.Find("file_system")) volume.file_system = name->Text();
  volume.letter = ReadLetter(place.Find("letter"), context.letters);
  volume.source_letter = ReadLetter(place.Find("source_letter"), context.source_letters);
  if (const auto type = place.Find("drive_type")) {
    const std::string name = type->Text();
    if (name != "fixed" && name != "removable") type->Fail("\"fixed\" or \"removable\"");
    volume.drive_type = name == "fixed" ? DRIVE_FIXED : DRIVE_REMOVABLE;
  }
  if (const auto lines = place.Find("backup_info")) volume.backup_info = ReadLines(*lines);
  if (const auto import = place.Find("import")) {
    volume.import = context.folder / import->Line();
    std::error_code error;
    if (!std::filesystem::is_directory(volume.import, error)) {
      import->Fail("a folder, found none at \"" + volume.import.string() + "\"");
    }
  }
  if (const auto source = place.Find("source")) {
    if (!volume.source_letter) source->Fail("a source letter beside it");
    volume.source = ReadSource(*source);
  }
  for (const char* const key : {"lost", "unreadable"}) {
    if (const auto found = place.Find(key); found && !volume.source) {
      found->Fail("a source beside it");
    }
  }
  if (const auto lost = place.Find("lost")) volume.lost = ReadLosses(*lost);
  if (const auto unreadable = place.Find("unreadable")) {
    volume.unreadable = ReadUnreadable(*unreadable);
  }
  return volume;
}

// The partition of an earlier disk that has a spanned volume.
std::pair<int, int> ReadPartOf(const JsonPlace& place, const Context& context) {
  place.AllowKeys({"disk", "partition"});
  const auto disk = static_cast<int>(place.At("disk").Number(0, std::ssize(context.disks) - 1));
  const auto number = static_cast<int>(place.At("partition").Number(1, 128));
  const ScenarioDisk& first = context.disks[static_cast<size_t>(disk)];
  const bool has_volume = std::ranges::any_of(first.partitions, [number](const auto& each) {
    return each.number == number && each.volume.has_value();
  });
  if (!first.dynamic || !first.online || !has_volume) {
    place.Fail("a volume on a dynamic disk that is online");
  }
  return {disk, number};
}

ScenarioPartition ReadPartition(const JsonPlace& place, int number, Context& context) {
  place.AllowKeys({"number", "size", "info", "volume", "part_of"});
  ScenarioPartition partition;
  partition.number = number;
  if (const auto given = place.Find("number")) {
    partition.number = static_cast<int>(given->Number(1, 128));
  }
  partition.size = place.At("size").Size();
  if (const auto info = place.Find("info")) {
    partition.info = info->Text();
    if (partition.info != "System" && partition.info != "Boot" && partition.info != "Hidden") {
      info->Fail("\"System\", \"Boot\" or \"Hidden\"");
    }
    if (partition.info == "System") {
      if (context.has_system_partition) info->Fail("\"System\" for one partition only");
      context.has_system_partition = true;
    }
  }
  if (const auto volume = place.Find("volume")) partition.volume = ReadVolume(*volume, context);
  if (const auto part_of = place.Find("part_of")) {
    if (partition.volume) part_of->Fail("no volume beside it");
    partition.part_of = ReadPartOf(*part_of, context);
  }
  return partition;
}

ScenarioDisk ReadDisk(const JsonPlace& place, Context& context) {
  ScenarioDisk disk;
  if (const auto medium = place.Find("medium")) disk.has_medium = medium->Truth();
  if (!disk.has_medium) {
    place.AllowKeys({"medium", "model"});
    if (const auto model = place.Find("model")) disk.model = model->Line();
    return disk;
  }
  place.AllowKeys({"medium", "size", "free", "model", "gpt", "online", "dynamic", "partitions"});
  disk.size = place.At("size").Size();
  if (const auto free = place.Find("free")) disk.free = free->Size();
  if (const auto model = place.Find("model")) disk.model = model->Line();
  if (const auto gpt = place.Find("gpt")) disk.gpt = gpt->Truth();
  if (const auto online = place.Find("online")) disk.online = online->Truth();
  if (const auto dynamic = place.Find("dynamic")) disk.dynamic = dynamic->Truth();
  if (disk.free > disk.size) place.At("free").Fail("no more than the disk's size");
  const auto partitions = place.Find("partitions");
  if (!partitions) return disk;

  uint64_t left = disk.size - disk.free;
  std::set<int> numbers;
  int next = 1;
  for (const JsonPlace& element : partitions->Elements()) {
    const ScenarioPartition partition = ReadPartition(element, next, context);
    if (partition.info == "System") context.uefi = disk.gpt;
    next = partition.number + 1;
    if (!numbers.insert(partition.number).second) {
      element.Fail("a number that no other partition of the disk has");
    }
    if (partition.size > left) {
      element.At("size").Fail("a partition that fits beside the disk's others and its free space");
    }
    left -= partition.size;
    if (partition.part_of && (!disk.dynamic || !disk.online)) {
      element.At("part_of").Fail("to be on a dynamic disk that is online");
    }
    if (!disk.online && partition.volume && partition.volume->letter) {
      element.At("volume").At("letter").Fail("no letter on a disk that is offline");
    }
    disk.partitions.push_back(partition);
  }
  return disk;
}

ScenarioEmptyDrive ReadEmptyDrive(const JsonPlace& place, Context& context) {
  place.AllowKeys({"letter", "drive_type"});
  ScenarioEmptyDrive drive;
  drive.letter = *ReadLetter(place.At("letter"), context.letters);
  const JsonPlace type = place.At("drive_type");
  const std::string name = type.Text();
  if (name != "removable" && name != "cd") type.Fail("\"removable\" or \"cd\"");
  drive.drive_type = name == "cd" ? DRIVE_CDROM : DRIVE_REMOVABLE;
  return drive;
}

ScenarioTool ReadTool(const JsonPlace& place, const std::vector<std::string>& tools) {
  place.AllowKeys({"name", "call", "exit_code", "output"});
  ScenarioTool tool;
  tool.place = place.Where();
  tool.name = place.At("name").Text();
  if (std::ranges::find(tools, tool.name) == tools.end()) {
    std::string names;
    for (const std::string& name : tools) names += " \"" + name + "\"";
    place.At("name").Fail("a tool of this Windows:" + names);
  }
  if (const auto call = place.Find("call")) {
    tool.call = static_cast<int>(call->Number(1, std::numeric_limits<int>::max()));
    tool.place = call->Where();
  }
  tool.exit_code = static_cast<DWORD>(place.At("exit_code").Number(0, kMaxDword));
  if (const auto output = place.Find("output")) tool.output = output->Text();
  return tool;
}

ScenarioFault ReadFault(const JsonPlace& place) {
  place.AllowKeys({"call", "occurrence", "error", "for_good"});
  ScenarioFault fault;
  fault.name = place.At("call").Line();
  fault.place = place.At("call").Where();
  if (std::ranges::find(CallNames(), fault.name) == CallNames().end()) {
    place.At("call").Fail("the name of a call that the program can make, such as \"CreatePipe\"");
  }
  if (const auto occurrence = place.Find("occurrence")) {
    fault.occurrence = static_cast<int>(occurrence->Number(1, std::numeric_limits<int>::max()));
    fault.place = occurrence->Where();
  }
  fault.error = static_cast<uint32_t>(place.At("error").Number(0, kMaxDword));
  const auto for_good = place.Find("for_good");
  if (for_good && for_good->Truth()) fault.lasting = Lasting::kForGood;
  return fault;
}

// "10.0.14393".
void ReadVersion(const JsonPlace& place, Scenario& scenario) {
  const std::string text = place.Text();
  const char* rest = text.data();
  const char* const end = rest + text.size();
  bool valid = true;
  for (DWORD* part : {&scenario.major_version, &scenario.minor_version, &scenario.build}) {
    if (part != &scenario.major_version) valid = valid && rest != end && *rest++ == '.';
    const auto [after, error] = std::from_chars(rest, end, *part);
    valid = valid && error == std::errc();
    rest = after;
  }
  const bool known =
      scenario.major_version >= 6 || (scenario.major_version == 5 && scenario.minor_version == 2);
  if (!valid || rest != end || !known) {
    place.Fail("Windows 5.2 or a version from 6.0 on with its build, such as \"10.0.14393\"");
  }
}

void ReadWindows(const JsonPlace& place, Scenario& scenario) {
  place.AllowKeys({"version", "language", "computer_name", "diskpart"});
  if (const auto texts = place.Find("diskpart")) {
    const auto names = DiskpartTexts::Names();
    texts->AllowKeys({names.begin(), names.end()});
    for (const auto& [english, text] : texts->Members()) {
      scenario.disk_tool_texts[english] = text.Text();
    }
  }
  if (const auto version = place.Find("version")) ReadVersion(*version, scenario);
  if (const auto language = place.Find("language")) {
    scenario.language = static_cast<LANGID>(language->Number(1, 0xFFFF));
  }
  if (const auto name = place.Find("computer_name")) scenario.computer_name = name->Line();
}

}  // namespace

std::vector<std::string> Scenario::Tools() const {
  if (!HasBootStore()) return {"diskpart"};
  if (major_version == 6 && minor_version == 0) return {"diskpart", "bcdedit"};
  return {"diskpart", "bcdedit", "bcdboot"};
}

Scenario ReadScenario(const std::filesystem::path& file) {
  const nlohmann::json document = ParseJsonFile(file);
  const JsonPlace root(file, document);
  root.AllowKeys(
      {"title", "windows", "boot", "disks", "empty_drives", "tools", "faults", "startup_links"});
  Scenario scenario;
  Context context{.folder = file.parent_path(), .disks = {}, .letters = {}, .source_letters = {}};
  scenario.title = root.At("title").Line();
  if (const auto windows = root.Find("windows")) ReadWindows(*windows, scenario);
  const JsonPlace disks = root.At("disks");
  for (const JsonPlace& disk : disks.Elements()) context.disks.push_back(ReadDisk(disk, context));
  scenario.disks = context.disks;
  if (const auto boot = root.Find("boot")) {
    if (!scenario.HasBootStore()) boot->Fail("no boot store on Windows 5.2");
    scenario.boot = std::make_shared<Boot>(ReadBoot(*boot, context.uefi));
  } else if (scenario.HasBootStore()) {
    scenario.boot = std::make_shared<Boot>(HealthyBoot(context.uefi));
  }
  if (!context.letters.contains('C')) {
    disks.Fail("a volume with the letter C, where Windows and the program are");
  }
  if (const auto drives = root.Find("empty_drives")) {
    for (const JsonPlace& drive : drives->Elements()) {
      scenario.empty_drives.push_back(ReadEmptyDrive(drive, context));
    }
  }
  if (const auto tools = root.Find("tools")) {
    for (const JsonPlace& tool : tools->Elements()) {
      scenario.tools.push_back(ReadTool(tool, scenario.Tools()));
    }
  }
  if (const auto faults = root.Find("faults")) {
    for (const JsonPlace& fault : faults->Elements()) scenario.faults.push_back(ReadFault(fault));
  }
  if (const auto links = root.Find("startup_links")) {
    links->AllowKeys({"common", "program"});
    if (const auto common = links->Find("common")) scenario.common_startup_link = common->Truth();
    if (const auto program = links->Find("program")) scenario.program_link = program->Truth();
  }
  return scenario;
}

}  // namespace simulator
