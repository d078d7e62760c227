#include <algorithm>
#include <charconv>
#include <iterator>
#include <utility>
#include <vector>

#include "simulator/model/common/path_name.h"
#include "simulator/model/common/unsupported.h"
#include "simulator/tools/diskpart_parts.h"

namespace simulator {
namespace {

// The words of a line in lower case.
std::vector<std::string> Words(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  std::vector<std::string> words;
  size_t end = 0;
  for (size_t start; (start = line.find_first_not_of(kBlanks, end)) != line.npos;) {
    end = std::min(line.find_first_of(kBlanks, start), line.size());
    words.push_back(NameKey(line.substr(start, end - start)));
  }
  return words;
}

bool Means(std::string_view word, std::string_view keyword) {
  constexpr size_t kShortest = 3;
  return word.size() >= kShortest && keyword.starts_with(word);
}

DiskpartCommand BadArguments(std::string topic) {
  return {.verb = DiskpartVerb::kBadArguments, .help_topic = std::move(topic)};
}

// "disk 1" or "disk=1".
DiskpartCommand ParseSelect(const std::vector<std::string>& words) {
  std::string object = words.size() > 1 ? words[1] : "";
  std::vector<std::string> values(words.begin() + std::min<ptrdiff_t>(2, std::ssize(words)),
                                  words.end());
  if (const size_t equals = object.find('='); equals != std::string::npos) {
    values.insert(values.begin(), object.substr(equals + 1));
    object.resize(equals);
  }
  DiskpartCommand command;
  if (Means(object, "disk")) {
    command.verb = DiskpartVerb::kSelectDisk;
  } else if (Means(object, "partition")) {
    command.verb = DiskpartVerb::kSelectPartition;
  } else if (Means(object, "volume") || Means(object, "vdisk")) {
    Unsupported("diskpart: select " + object);
  } else {
    return BadArguments("SELECT");
  }
  const std::string topic =
      command.verb == DiskpartVerb::kSelectDisk ? "SELECT DISK" : "SELECT PARTITION";
  if (values.empty()) Unsupported("diskpart: select without a number");
  if (values[0] == "system" || values[0] == "next") Unsupported("diskpart: select " + values[0]);
  const char* const end = values[0].data() + values[0].size();
  const auto [rest, error] = std::from_chars(values[0].data(), end, command.number);
  if (values.size() > 1 || error != std::errc() || rest != end) return BadArguments(topic);
  return command;
}

DiskpartCommand ParseAssign(const std::vector<std::string>& words) {
  DiskpartCommand command{.verb = DiskpartVerb::kAssign};
  if (words.size() == 1) return command;
  if (words[1].starts_with("mount=") || words.back() == "noerr") {
    Unsupported("diskpart: assign " + words.back());
  }
  constexpr std::string_view kKey = "letter=";
  if (words.size() > 2 || !words[1].starts_with(kKey)) return BadArguments("ASSIGN");
  std::string value = words[1].substr(kKey.size());
  if (value.size() == 2 && value[1] == ':') value.pop_back();
  if (value.size() != 1 || value[0] < 'a' || value[0] > 'z') return BadArguments("ASSIGN");
  command.letter = static_cast<char>(value[0] - 'a' + 'A');
  return command;
}

// A command of one object, such as "list disk".
DiskpartCommand ParseShow(const std::vector<std::string>& words, DiskpartVerb verb,
                          const std::string& topic) {
  for (const std::string_view other : {"partition", "volume", "vdisk"}) {
    if (words.size() > 1 && Means(words[1], other)) {
      Unsupported("diskpart: " + words[0] + " " + words[1]);
    }
  }
  if (words.size() != 2 || !Means(words[1], "disk")) return BadArguments(topic);
  return {.verb = verb};
}

}  // namespace

DiskpartCommand ParseDiskpartCommand(std::string_view line) {
  const std::vector<std::string> words = Words(line);
  if (words.empty() || words[0] == "rem") return {};
  const std::string& verb = words[0];
  if (Means(verb, "list")) return ParseShow(words, DiskpartVerb::kListDisk, "LIST");
  if (Means(verb, "detail")) return ParseShow(words, DiskpartVerb::kDetailDisk, "DETAIL");
  if (Means(verb, "select")) return ParseSelect(words);
  if (Means(verb, "assign")) return ParseAssign(words);
  if (Means(verb, "remove")) {
    if (words.size() > 1) Unsupported("diskpart: remove " + words[1]);
    return {.verb = DiskpartVerb::kRemove};
  }
  if (Means(verb, "exit")) return {.verb = DiskpartVerb::kExit};
  for (const std::string_view other :
       {"active",   "add",         "attach",  "attributes", "automount", "break",
        "clean",    "compact",     "convert", "create",     "delete",    "expand",
        "extend",   "filesystems", "format",  "gpt",        "help",      "import",
        "inactive", "merge",       "offline", "online",     "recover",   "repair",
        "rescan",   "retain",      "san",     "setid",      "shrink",    "uniqueid"}) {
    if (Means(verb, other)) Unsupported("diskpart: " + verb);
  }
  return {.verb = DiskpartVerb::kUnknown};
}

}  // namespace simulator
