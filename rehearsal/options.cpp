#include "rehearsal/options.h"

#include <charconv>

namespace simulator {
namespace {

// Nothing when the text is not a whole number in that range.
std::optional<int> WholeNumber(std::string_view text, int low, int high) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  const bool is_number = error == std::errc() && rest == end;
  return is_number && number >= low && number <= high ? std::optional(number) : std::nullopt;
}

// The arguments behind an option, taken one after the other.
class Values {
 public:
  explicit Values(const std::vector<std::string>& arguments) : arguments_(arguments) {}

  bool IsAtEnd() const { return next_ == arguments_.size(); }
  // Empty at the end.
  std::string Take() { return IsAtEnd() ? "" : arguments_[next_++]; }

 private:
  const std::vector<std::string>& arguments_;
  size_t next_ = 0;
};

std::string ParseAnswer(Values& values, Intention& intention) {
  const std::string answer = values.Take();
  if (answer == "restart") {
    intention = {Wish::kRestart, 0};
  } else if (answer == "later") {
    intention = {Wish::kLater, 0};
  } else if (answer == "cancel-at") {
    const std::optional<int> percent = WholeNumber(values.Take(), 0, 100);
    if (!percent) return "--answer cancel-at needs a percent from 0 to 100";
    intention = {Wish::kCancel, *percent};
  } else {
    return "--answer needs restart, later or cancel-at PERCENT";
  }
  return "";
}

std::string ParseOption(const std::string& option, Values& values, Options& options) {
  if (option == "--list") {
    options.list = true;
  } else if (option == "--windows") {
    options.windows = true;
  } else if (option == "--help") {
    options.help = true;
  } else if (option == "--strict") {
    options.strict = true;
  } else if (option == "--scenario" || option == "--logs" || option == "--json") {
    const std::string value = values.Take();
    if (value.empty()) return option + " needs a value";
    if (option == "--scenario") {
      options.scenario = value;
    } else {
      (option == "--logs" ? options.logs : options.json) = value;
    }
  } else if (option == "--language") {
    constexpr int kLast = 0xFFFF;
    const std::optional<int> language = WholeNumber(values.Take(), 1, kLast);
    if (!language) return "--language needs a LANGID from 1 to 65535";
    options.language = static_cast<LANGID>(*language);
  } else if (option == "--answer") {
    return ParseAnswer(values, options.intention);
  } else {
    return "unknown argument \"" + option + "\"";
  }
  return "";
}

}  // namespace

const std::string_view kHelp =
    "usage: rehearse [--windows] [--scenario NAME|FILE] [--language LANGID] [--answer ANSWER]\n"
    "                [--logs FOLDER] [--json FILE] [--strict]\n"
    "       rehearse --list | --help\n"
    "\n"
    "Runs the restore program on a simulated server, shows its dialog and its log, and reports "
    "what\n"
    "is as on the source: boot configuration, drive letters, junctions, security descriptors.\n"
    "\n"
    "  --scenario NAME    a shipped scenario, see --list; \"default\" without this option\n"
    "  --scenario FILE    a scenario file: the name ends with .json or holds a slash\n"
    "  --language LANGID  the server's language instead of the scenario's: 1033 English, 2052\n"
    "                     Chinese; the program speaks English on all others\n"
    "  --answer restart   the user lets the simulated server restart; so without this option\n"
    "  --answer later     the user does not let it restart\n"
    "  --answer cancel-at PERCENT\n"
    "                     the user cancels the run as soon as the bar has come so far\n"
    "  --logs FOLDER      where the program's log is copied; ./out/Logs without this option\n"
    "  --json FILE        writes the report for machines; docs/report.md describes it\n"
    "  --strict           ends with status 3 if anything in the report is wrong. A junction that\n"
    "                     was there already, or whose target the source lacked too, is not wrong\n"
    "  --windows          the program of Windows itself, under Wine, on drives of a prefix of its "
    "own;\n"
    "                     what the screen showed at the end lies beside the log\n"
    "  --list             the shipped scenarios and what they show\n"
    "  --help             this text\n"
    "\n"
    "Exit status: the first of these that applies\n"
    "  2  wrong usage or a broken scenario, also one that names a call which the run did not make\n"
    "  1  the log or the report could not be written\n"
    "  3  with --strict: something in the report is wrong, whether or not the run failed\n"
    "  1  the run failed or was cancelled\n"
    "  0  otherwise\n";

std::string ParseArguments(const std::vector<std::string>& arguments, Options& options) {
  Values values(arguments);
  while (!values.IsAtEnd()) {
    std::string wrong = ParseOption(values.Take(), values, options);
    if (!wrong.empty()) return wrong;
  }
  if (options.windows && options.intention.wish == Wish::kCancel) {
    return "--answer cancel-at is not for --windows";
  }
  return "";
}

}  // namespace simulator
