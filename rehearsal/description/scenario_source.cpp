#include "rehearsal/description/scenario_source.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "rehearsal/description/scenario_json.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/common/utf8.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"

namespace simulator {
namespace {

constexpr int kMostMade = 1'000'000;
constexpr size_t kLongestPath = 32'767 - 3;  // UTF-16 units behind "C:\"

// The paths read so far, by NameKey.
struct Paths {
  struct Entry {
    JsonPlace place;
    bool is_folder;
  };
  std::map<std::string, Entry> entries;
};

std::string Joined(const std::vector<std::string>& names) {
  std::string path;
  for (const std::string& name : names) path += (path.empty() ? "" : "\\") + name;
  return path;
}

std::string ReadPath(const JsonPlace& place, bool is_folder, Paths& paths) {
  std::string path = place.Text();
  if (Utf16Length(path) > kLongestPath) {
    place.Fail("a path of at most " + std::to_string(kLongestPath) + " characters");
  }
  const std::vector<std::string> names = NamesBelowRoot(path);
  if (names.empty() || Joined(names) != path ||
      !std::all_of(names.begin(), names.end(), IsValidName)) {
    place.Fail("a path behind the root, such as \"Data\\\\Shares\"");
  }
  if (!paths.entries.emplace(NameKey(path), Paths::Entry{place, is_folder}).second) {
    place.Fail("a path that comes once");
  }
  return path;
}

// Nothing lies below a file or a junction.
void CheckParents(const Paths& paths) {
  for (const auto& [key, entry] : paths.entries) {
    for (size_t end = key.find('\\'); end != std::string::npos; end = key.find('\\', end + 1)) {
      const auto parent = paths.entries.find(key.substr(0, end));
      if (parent != paths.entries.end() && !parent->second.is_folder) {
        entry.place.Fail("a path below folders only");
      }
    }
  }
}

std::shared_ptr<const Descriptor> ReadDescriptorText(const std::optional<JsonPlace>& place) {
  if (!place) return nullptr;
  Descriptor descriptor;
  if (ParseSddl(place->Text(), Security().domains(), &descriptor) != ERROR_SUCCESS) {
    place->Fail("a security descriptor as text, such as \"D:PAI(A;;FA;;;BA)\"");
  }
  return std::make_shared<const Descriptor>(std::move(descriptor));
}

DWORD ReadAttributes(const JsonPlace& place) {
  constexpr std::pair<char, DWORD> kLetters[] = {
      {'R', FILE_ATTRIBUTE_READONLY},
      {'H', FILE_ATTRIBUTE_HIDDEN},
      {'S', FILE_ATTRIBUTE_SYSTEM},
      {'A', FILE_ATTRIBUTE_ARCHIVE},
      {'T', FILE_ATTRIBUTE_TEMPORARY},
      {'O', FILE_ATTRIBUTE_OFFLINE},
      {'I', FILE_ATTRIBUTE_NOT_CONTENT_INDEXED},
  };
  DWORD attributes = 0;
  for (const char c : place.Text()) {
    const auto* const found = std::find_if(std::begin(kLetters), std::end(kLetters),
                                           [c](const auto& known) { return known.first == c; });
    if (found == std::end(kLetters)) place.Fail("letters of \"RHSATOI\"");
    attributes |= found->second;
  }
  return attributes;
}

ScenarioObject ReadObject(const JsonPlace& place, DWORD kind, DWORD usual, Paths& paths) {
  ScenarioObject object;
  const bool is_plain_folder = kind == FILE_ATTRIBUTE_DIRECTORY;
  object.path = ReadPath(place.At("path"), is_plain_folder, paths);
  object.given = ReadDescriptorText(place.Find("sddl"));
  object.copy_given = ReadDescriptorText(place.Find("copy_sddl"));
  const auto attributes = place.Find("attributes");
  object.attributes = kind | (attributes ? ReadAttributes(*attributes) : usual);
  if (object.attributes == 0) object.attributes = FILE_ATTRIBUTE_NORMAL;
  return object;
}

int ReadCount(const std::optional<JsonPlace>& place) {
  return place ? static_cast<int>(place->Number(0, kMostMade)) : 0;
}

ScenarioObject ReadFolder(const JsonPlace& place, Paths& paths) {
  place.AllowKeys({"path", "sddl", "copy_sddl", "attributes", "folders", "files"});
  ScenarioObject folder = ReadObject(place, FILE_ATTRIBUTE_DIRECTORY, 0, paths);
  folder.folders = ReadCount(place.Find("folders"));
  folder.files = ReadCount(place.Find("files"));
  return folder;
}

ScenarioObject ReadFile(const JsonPlace& place, Paths& paths) {
  place.AllowKeys({"path", "sddl", "copy_sddl", "attributes"});
  return ReadObject(place, 0, FILE_ATTRIBUTE_ARCHIVE, paths);
}

ScenarioJunction ReadJunction(const JsonPlace& place, Paths& paths) {
  constexpr std::pair<std::string_view, JunctionCopy> kCopies[] = {
      {"junction", JunctionCopy::kJunction},
      {"nothing", JunctionCopy::kNothing},
      {"file", JunctionCopy::kFile},
      {"folder", JunctionCopy::kFolder},
  };
  place.AllowKeys({"path", "target", "sddl", "attributes", "copy"});
  ScenarioJunction junction;
  junction.object =
      ReadObject(place, FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT, 0, paths);
  const JsonPlace target = place.At("target");
  junction.target = target.Line();
  if (Utf16Length(junction.target) > kLongestJunctionTarget) {
    target.Fail("a target of at most " + std::to_string(kLongestJunctionTarget) + " characters");
  }
  if (const auto copy = place.Find("copy")) {
    const auto* const found =
        std::find_if(std::begin(kCopies), std::end(kCopies),
                     [name = copy->Text()](const auto& known) { return known.first == name; });
    if (found == std::end(kCopies)) {
      copy->Fail("\"junction\", \"nothing\", \"file\" or \"folder\"");
    }
    junction.copy = found->second;
  }
  return junction;
}

// Sets each flag whose name the array holds.
void ReadFlags(const JsonPlace& place, const std::map<std::string, bool*>& flags) {
  for (const JsonPlace& element : place.Elements()) {
    const auto found = flags.find(element.Text());
    if (found == flags.end()) {
      std::string names;
      for (const auto& [name, flag] : flags) names += (names.empty() ? "\"" : ", \"") + name + "\"";
      element.Fail("one of " + names);
    }
    *found->second = true;
  }
}

}  // namespace

ScenarioSource ReadSource(const JsonPlace& place) {
  place.AllowKeys({"sddl", "folders", "files", "junctions"});
  ScenarioSource source;
  Paths paths;
  if (const auto sddl = place.Find("sddl")) {
    source.root_given = ReadDescriptorText(sddl);
    const Descriptor& root = *source.root_given;
    if (!root.owner || !root.group || (root.control & SE_DACL_PRESENT) == 0) {
      sddl->Fail("the owner, the group and the DACL of a root, which inherits nothing");
    }
  }
  if (const auto folders = place.Find("folders")) {
    for (const JsonPlace& folder : folders->Elements()) {
      source.folders.push_back(ReadFolder(folder, paths));
    }
  }
  if (const auto files = place.Find("files")) {
    for (const JsonPlace& file : files->Elements()) source.files.push_back(ReadFile(file, paths));
  }
  if (const auto junctions = place.Find("junctions")) {
    for (const JsonPlace& junction : junctions->Elements()) {
      source.junctions.push_back(ReadJunction(junction, paths));
    }
  }
  CheckParents(paths);
  return source;
}

ScenarioLosses ReadLosses(const JsonPlace& place) {
  ScenarioLosses lost{.descriptors = false, .junctions = false, .attributes = false};
  ReadFlags(place, {{"descriptors", &lost.descriptors},
                    {"junctions", &lost.junctions},
                    {"attributes", &lost.attributes},
                    {"prepare_folder", &lost.prepare_folder},
                    {"junction_list", &lost.junction_list},
                    {"acl_list", &lost.acl_list}});
  return lost;
}

ScenarioUnreadable ReadUnreadable(const JsonPlace& place) {
  ScenarioUnreadable unreadable;
  ReadFlags(place,
            {{"junction_list", &unreadable.junction_list}, {"acl_list", &unreadable.acl_list}});
  return unreadable;
}

}  // namespace simulator
