#include "rehearsal/description/source_tree.h"

#include <cstdio>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "rehearsal/description/scenario.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/junction.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/shared_descriptors.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/inheritance.h"

namespace simulator {
namespace {

// Descriptors that nodes do not merely inherit, as far as they are given.
using Given = std::map<const Node*, const Descriptor*>;

// The child of that name and kind, made when there is none.
std::shared_ptr<Node> Child(Node& folder, const std::string& name, DWORD attributes) {
  std::shared_ptr<Node> child = folder.Child(name);
  if (!child) return folder.AddChild(name, attributes);
  if (((child->attributes ^ attributes) & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    throw ScenarioError(name + ": expected to be a file or a folder, as what is there already");
  }
  return child;
}

// The node at that path, made with its parents where they are missing.
std::shared_ptr<Node> Make(std::shared_ptr<Node> node, std::string_view path, DWORD attributes) {
  const std::vector<std::string> names = NamesBelowRoot(path);
  for (size_t i = 0; i < names.size(); ++i) {
    const bool is_last = i + 1 == names.size();
    node = Child(*node, names[i], is_last ? attributes : FILE_ATTRIBUTE_DIRECTORY);
  }
  return node;
}

// "Folder 0012" for the first free number from `number` on, which is then one further.
std::string FreeName(const Node& folder, const char* format, int& number) {
  std::string name;
  do {
    char text[32];
    const int length = std::snprintf(text, sizeof(text), format, number++);
    name.assign(text, static_cast<size_t>(length));
  } while (folder.Child(name));
  return name;
}

void Fill(const std::shared_ptr<Node>& folder, int folders, int files) {
  std::vector<std::shared_ptr<Node>> all = {folder};
  int number = 1;
  for (int i = 0; i < folders; ++i) {
    all.push_back(
        folder->AddChild(FreeName(*folder, "Folder %03d", number), FILE_ATTRIBUTE_DIRECTORY));
  }
  number = 1;
  for (int i = 0; i < files; ++i) {
    Node& place = *all[static_cast<size_t>(i) % all.size()];
    place.AddChild(FreeName(place, "File %05d.dat", number), FILE_ATTRIBUTE_ARCHIVE);
  }
}

// What is not given comes from `inherited`. Entries that the parent lets inherit are made anew, for
// the owner they then have.
Descriptor Completed(const Descriptor& given, const Descriptor& inherited, const Descriptor& parent,
                     bool is_folder) {
  Descriptor made = given;
  if (!made.owner) made.owner = inherited.owner;
  if (!made.group) made.group = inherited.group;
  made = Reinherited(made, parent, is_folder);
  if ((made.control & SE_DACL_PRESENT) == 0) {
    made.control |= SE_DACL_PRESENT;
    made.dacl = inherited.dacl;
  }
  return made;
}

// Gives what is below a folder the descriptors that it lacks.
void Secure(const Node& folder, const Given& given, SharedDescriptors& inherited) {
  for (const std::shared_ptr<Node>& child : folder.contents().children) {
    if (!child->security) {
      const bool is_folder = child->IsFolder();
      child->security = inherited.Below(folder.security, is_folder);
      if (const auto found = given.find(child.get()); found != given.end()) {
        child->security = std::make_shared<const Descriptor>(
            Completed(*found->second, *child->security, *folder.security, is_folder));
      }
    }
    Secure(*child, given, inherited);
  }
}

// All but junctions.
void CopyChildren(const Node& source, const ScenarioLosses& lost, Node& copy) {
  if (!lost.descriptors) copy.security = source.security;
  if (!lost.attributes) copy.attributes = source.attributes;
  for (const std::shared_ptr<Node>& child : source.contents().children) {
    if (!child->contents().reparse_data.empty()) continue;
    const DWORD usual = child->IsFolder() ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    CopyChildren(*child, lost, *Child(copy, child->name, usual));
  }
}

void CopyJunction(const ScenarioJunction& junction, const ScenarioLosses& lost, const Node& source,
                  const std::shared_ptr<Node>& root) {
  const JunctionCopy usual = lost.junctions ? JunctionCopy::kNothing : JunctionCopy::kJunction;
  const JunctionCopy copy = junction.copy.value_or(usual);
  if (copy == JunctionCopy::kNothing) return;
  const DWORD kind =
      copy == JunctionCopy::kFile ? FILE_ATTRIBUTE_ARCHIVE : FILE_ATTRIBUTE_DIRECTORY;
  const std::shared_ptr<Node> node = Make(root, junction.object.path, kind);
  if (!lost.descriptors) node->security = source.security;
  if (copy != JunctionCopy::kJunction) return;
  if (!node->contents().children.empty()) {
    throw ScenarioError(junction.object.path + ": expected a junction where the copy has no files");
  }
  if (!lost.attributes) node->attributes = source.attributes;
  node->MakeReparsePoint(JunctionBuffer(junction.target));
}

void Visit(const std::string& path, const Node& node,
           const std::function<void(const std::string& path, const Node& node)>& visit) {
  visit(path, node);
  const std::string below = path.ends_with('\\') ? path : path + "\\";
  for (const auto& child : node.contents().children) Visit(below + child->name, *child, visit);
}

}  // namespace

std::shared_ptr<const Node> MakeSourceTree(const ScenarioSource& source, const Identity& identity) {
  SharedDescriptors inherited(identity);
  const auto root = std::make_shared<Node>();
  root->attributes = FILE_ATTRIBUTE_DIRECTORY;
  root->security = inherited.OfRoot();
  if (source.root_given) root->security = source.root_given;

  Given given;
  const auto make = [&root, &given](const ScenarioObject& object) {
    std::shared_ptr<Node> node = Make(root, object.path, object.attributes);
    node->attributes = object.attributes;
    if (object.given) given.emplace(node.get(), &*object.given);
    return node;
  };
  for (const ScenarioObject& folder : source.folders) make(folder);
  for (const ScenarioObject& file : source.files) make(file);
  for (const ScenarioJunction& junction : source.junctions) {
    make(junction.object)->MakeReparsePoint(JunctionBuffer(junction.target));
  }
  // Last, so that what has a name of its own keeps it.
  for (const ScenarioObject& folder : source.folders) {
    Fill(Make(root, folder.path, FILE_ATTRIBUTE_DIRECTORY), folder.folders, folder.files);
  }
  Secure(*root, given, inherited);
  return root;
}

void CopyTree(const Node& source_root, const ScenarioSource& source, const ScenarioLosses& lost,
              const Identity& identity, const std::shared_ptr<Node>& root) {
  CopyChildren(source_root, lost, *root);
  for (const ScenarioJunction& junction : source.junctions) {
    CopyJunction(junction, lost, *source_root.Find(junction.object.path), root);
  }
  Given given;
  for (const std::vector<ScenarioObject>* objects : {&source.folders, &source.files}) {
    for (const ScenarioObject& object : *objects) {
      if (!object.copy_given) continue;
      const std::shared_ptr<Node> node = Make(root, object.path, object.attributes);
      node->security = nullptr;
      given.emplace(node.get(), &*object.copy_given);
    }
  }
  SharedDescriptors inherited(identity);
  Secure(*root, given, inherited);
}

void VisitTree(char letter, const Node& root,
               const std::function<void(const std::string& path, const Node& node)>& visit) {
  Visit(std::string(1, letter) + ":\\", root, visit);
}

std::string JunctionTargetOf(const Node& node) {
  std::string name = SubstituteName(node.contents().reparse_data).value_or("");
  return name.starts_with(kNtPrefix) ? name.substr(kNtPrefix.size()) : name;
}

}  // namespace simulator
