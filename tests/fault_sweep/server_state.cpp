#include "fault_sweep/server_state.h"

#include <functional>
#include <optional>

#include "rehearsal/description/scenario.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/boot/boot_store.h"
#include "simulator/model/boot/disks.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace fault_sweep {
namespace {

using simulator::Node;

bool IsLeftOut(const std::string& path) {
  return path.ends_with("\\Logs") || path.find(".script.") != std::string::npos;
}

bool HasOtherBytes(const std::string& path) { return path.ends_with("BCD_BAK"); }

class Collector {
 public:
  Collector(simulator::Server& server, ServerState& state) : server_(server), state_(state) {}

  void Collect(const std::string& volume, const std::string& path, const Node& node) {
    if (IsLeftOut(path)) return;
    std::string& text = state_[volume + ":" + path];
    text = std::to_string(node.attributes) + " " +
           simulator::SddlText(*node.security, server_.security().domains());
    if (!node.contents().reparse_data.empty()) text += " -> " + simulator::JunctionTargetOf(node);
    if (!HasOtherBytes(path))
      text += " " + std::to_string(std::hash<std::string>()(node.contents().bytes));
    for (const auto& child : node.contents().children) {
      Collect(volume, path + "\\" + child->name, *child);
    }
  }

 private:
  simulator::Server& server_;
  ServerState& state_;
};

}  // namespace

ServerState StateOf(simulator::Server& server, const simulator::Scenario& scenario) {
  ServerState state;
  Collector collector(server, state);
  for (const simulator::Disk& disk : server.disks()) {
    for (const simulator::Partition& partition : disk.partitions) {
      if (!partition.volume) continue;
      const std::string& name = partition.volume->label;
      const std::optional<char> letter = server.files().LetterOf(*partition.volume);
      state["letter of disk " + std::to_string(disk.number) + ", " + name] =
          letter ? std::string(1, *letter) : "none";
      collector.Collect(name, "", *partition.volume->root);
    }
  }
  if (!scenario.HasBootStore()) return state;
  std::string& order = state["boot entries"];
  for (const simulator::BootEntry& entry : server.boot().store.entries) {
    order += entry.identifier + " ";
    std::string& text = state["boot entry " + entry.identifier];
    for (const simulator::BootElement& element : entry.elements) {
      text += element.name + "=";
      for (const std::string& value : element.values) text += value + ",";
    }
  }
  return state;
}

std::vector<std::string> Differences(const ServerState& expected, const ServerState& found) {
  std::vector<std::string> names;
  for (const auto& [name, value] : expected) {
    const auto other = found.find(name);
    if (other == found.end() || other->second != value) names.push_back(name);
  }
  for (const auto& [name, value] : found) {
    if (!expected.contains(name)) names.push_back(name);
  }
  return names;
}

}  // namespace fault_sweep
