#include "rehearsal/description/prepare_folder.h"

#include "rehearsal/description/sddl_texts.h"
#include "rehearsal/description/source_tree.h"
#include "simulator/model/common/path_name.h"
#include "simulator/model/files/node.h"
#include "simulator/model/nls/code_page.h"

namespace simulator {
namespace {

std::string ListName(std::string_view name, char letter) {
  return std::string(name) + "_" + NameKey(std::string(1, letter)) + ".dat";
}

}  // namespace

std::string AclListName(char letter) { return ListName("aclbackup", letter); }
std::string JunctionListName(char letter) { return ListName("juncbackup", letter); }

std::string AclList(char letter, const Node& root, const AccountDomains& domains, UINT code_page) {
  SddlTexts texts(domains);
  const auto line = [&texts, code_page](const std::string& path, const Node& node) {
    return AnsiFromUtf8("\"" + path + "\"," + std::to_string(node.attributes) + ",\"" +
                            texts.Of(node.security) + "\"\r\n",
                        code_page);
  };
  // In a block of just its size: the list of a large volume is most of what the volume needs.
  size_t size = 0;
  VisitTree(letter, root,
            [&](const std::string& path, const Node& node) { size += line(path, node).size(); });
  std::string list;
  list.reserve(size);
  VisitTree(letter, root,
            [&](const std::string& path, const Node& node) { list += line(path, node); });
  return list;
}

std::string JunctionList(char letter, const Node& root, UINT code_page) {
  std::string list;
  VisitTree(letter, root, [&list, code_page](const std::string& path, const Node& node) {
    const std::string target = JunctionTargetOf(node);
    if (!target.empty()) list += AnsiFromUtf8(path + ";" + target + "\r\n", code_page);
  });
  return list;
}

std::string BackupInfo(char letter, const Node& root) {
  size_t count = 0;
  VisitTree(letter, root, [&count](const std::string&, const Node&) { ++count; });
  return std::string(1, letter) + "\r\n\r\n\r\n" + std::to_string(count) + "\r\n";
}

}  // namespace simulator
