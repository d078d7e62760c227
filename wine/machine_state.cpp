#include "wine/machine_state.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "simulator/model/files/volume.h"
#include "simulator/model/server.h"
#include "simulator/tools/boot_store_file.h"

namespace simulator {
namespace {

using nlohmann::json;

std::string LetterText(std::optional<char> letter) {
  return letter ? std::string(1, *letter) : std::string();
}

json VolumeJson(const MachineState& state, const Volume& volume) {
  json text = {{"label", volume.label},
               {"file_system", volume.file_system},
               {"size", volume.size},
               {"drive_type", volume.drive_type},
               {"letter", LetterText(state.LetterOf(volume))},
               {"target", state.targets.at(&volume)}};
  const auto store = state.boot.unused.find(&volume);
  if (store != state.boot.unused.end()) text["boot"] = json::parse(BootStoreFile(store->second));
  return text;
}

json DiskJson(const MachineState& state, const Disk& disk) {
  json partitions = json::array();
  for (const Partition& partition : disk.partitions) {
    json each = {{"number", partition.number}, {"size", partition.size}, {"info", partition.info}};
    if (partition.volume) each["volume"] = VolumeJson(state, *partition.volume);
    partitions.push_back(std::move(each));
  }
  return {{"number", disk.number},
          {"model", disk.model},
          {"id", disk.id},
          {"bus", disk.bus},
          {"size", disk.size},
          {"free", disk.free},
          {"online", disk.online},
          {"gpt", disk.gpt},
          {"dynamic", disk.dynamic},
          {"has_medium", disk.has_medium},
          {"partitions", std::move(partitions)}};
}

// These throw json::exception or std::bad_optional_access for what is not there or of another kind.

BootStore ReadStore(const json& from) { return ParseBootStoreFile(from.dump()).value(); }

// The volume of a partition that was read before; null if there is none.
std::shared_ptr<Volume> FindVolume(const std::string& target, const MachineState& state) {
  for (const Disk& disk : state.disks) {
    for (const Partition& partition : disk.partitions) {
      if (partition.volume && state.targets.at(partition.volume.get()) == target) {
        return partition.volume;
      }
    }
  }
  return nullptr;
}

std::shared_ptr<Volume> ReadVolume(const json& from, MachineState& state) {
  // A spanned volume is on several disks.
  if (auto found = FindVolume(from.at("target").get<std::string>(), state)) return found;
  auto volume = std::make_shared<Volume>();
  from.at("label").get_to(volume->label);
  from.at("file_system").get_to(volume->file_system);
  from.at("size").get_to(volume->size);
  from.at("drive_type").get_to(volume->drive_type);
  from.at("target").get_to(state.targets[volume.get()]);
  const std::string letter = from.at("letter").get<std::string>();
  if (!letter.empty()) state.letters[letter.front()] = volume;
  if (from.contains("boot")) state.boot.unused[volume.get()] = ReadStore(from.at("boot"));
  return volume;
}

Disk ReadDisk(const json& from, MachineState& state) {
  Disk disk;
  from.at("number").get_to(disk.number);
  from.at("model").get_to(disk.model);
  from.at("id").get_to(disk.id);
  from.at("bus").get_to(disk.bus);
  from.at("size").get_to(disk.size);
  from.at("free").get_to(disk.free);
  from.at("has_medium").get_to(disk.has_medium);
  from.at("online").get_to(disk.online);
  from.at("gpt").get_to(disk.gpt);
  from.at("dynamic").get_to(disk.dynamic);
  for (const json& each : from.at("partitions")) {
    Partition partition;
    each.at("number").get_to(partition.number);
    each.at("size").get_to(partition.size);
    each.at("info").get_to(partition.info);
    if (each.contains("volume")) partition.volume = ReadVolume(each.at("volume"), state);
    disk.partitions.push_back(std::move(partition));
  }
  return disk;
}

MachineState Read(const json& from) {
  MachineState state;
  const json& system = from.at("system");
  system.at("major_version").get_to(state.system.major_version);
  system.at("minor_version").get_to(state.system.minor_version);
  system.at("build").get_to(state.system.build);
  system.at("language").get_to(state.system.language);
  system.at("computer_name").get_to(state.system.computer_name);
  system.at("disk_tool_texts").get_to(state.system.disk_tool_texts);
  for (const json& disk : from.at("disks")) state.disks.push_back(ReadDisk(disk, state));
  for (const json& each : from.at("empty_drives")) {
    auto drive = std::make_shared<Volume>();
    each.at("drive_type").get_to(drive->drive_type);
    drive->has_medium = false;
    state.letters[each.at("letter").get<std::string>().at(0)] = std::move(drive);
  }
  from.at("current").get_to(state.boot.current);
  state.boot.store = ReadStore(from.at("boot"));
  for (const json& each : from.at("answers")) {
    ToolAnswer answer;
    each.at("name").get_to(answer.name);
    each.at("call").get_to(answer.call);
    each.at("exit_code").get_to(answer.exit_code);
    each.at("output").get_to(answer.output);
    each.at("is_held").get_to(answer.is_held);
    state.answers.push_back(std::move(answer));
  }
  from.at("calls").get_to(state.calls);
  for (const json& each : from.at("history")) {
    ToolCall call;
    each.at("name").get_to(call.name);
    each.at("script").get_to(call.script);
    each.at("exit_code").get_to(call.exit_code);
    state.history.push_back(std::move(call));
  }
  return state;
}

}  // namespace

std::optional<char> MachineState::LetterOf(const Volume& volume) const {
  for (const auto& [letter, mounted] : letters) {
    if (mounted.get() == &volume) return letter;
  }
  return std::nullopt;
}

std::string MachineStateText(const MachineState& state) {
  json disks = json::array();
  for (const Disk& disk : state.disks) disks.push_back(DiskJson(state, disk));
  json empty_drives = json::array();
  for (const auto& [letter, volume] : state.letters) {
    if (volume->has_medium) continue;
    empty_drives.push_back({{"letter", LetterText(letter)}, {"drive_type", volume->drive_type}});
  }
  json answers = json::array();
  for (const ToolAnswer& answer : state.answers) {
    answers.push_back({{"name", answer.name},
                       {"call", answer.call},
                       {"exit_code", answer.exit_code},
                       {"output", answer.output},
                       {"is_held", answer.is_held}});
  }
  json history = json::array();
  for (const ToolCall& call : state.history) {
    history.push_back(
        {{"name", call.name}, {"script", call.script}, {"exit_code", call.exit_code}});
  }
  const System& system = state.system;
  const json text = {{"system",
                      {{"major_version", system.major_version},
                       {"minor_version", system.minor_version},
                       {"build", system.build},
                       {"language", system.language},
                       {"computer_name", system.computer_name},
                       {"disk_tool_texts", system.disk_tool_texts}}},
                     {"disks", std::move(disks)},
                     {"empty_drives", std::move(empty_drives)},
                     {"boot", json::parse(BootStoreFile(state.boot.store))},
                     {"current", state.boot.current},
                     {"answers", std::move(answers)},
                     {"calls", state.calls},
                     {"history", std::move(history)}};
  return text.dump(1, ' ', false, json::error_handler_t::replace);
}

std::optional<MachineState> ParseMachineState(std::string_view text) {
  try {
    return Read(json::parse(text));
  } catch (const json::exception&) {
    return std::nullopt;
  } catch (const std::bad_optional_access&) {
    return std::nullopt;
  } catch (const std::out_of_range&) {
    return std::nullopt;
  }
}

}  // namespace simulator
