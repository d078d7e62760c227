// docs/operating.md explains every message of the program, and none that it does not have.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "support/source_texts.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::set<std::string>;

constexpr char kTree[] = TEST_DATA_DIR "/../../";

std::string Read(const fs::path& path) {
  std::ifstream file(path, std::ios_base::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// Texts of several words that nobody sees.
const Texts kUnseen = {
    // Pieces of command lines, which are logged as a whole, and of scripts.
    "bcdedit ", "/export \"", "/import \"", "/delete ", "bcdboot ", "\\Windows /s ", " /l ",
    "diskpart /s ", "list disk ", "sel disk ", "sel part ", "detail disk", " letter=",
    // Compared, not shown.
    "Windows Server 2003", "Windows Server 2008", "Windows Server 2012", "Windows Server 2016",
    // Of reports that the program opens no file for.
    "Info: Privilege '", "' could not be enabled. This can probably be ignored.",
    "Input file for restore operation: <", "> detected as ANSI.", "Restoring ACL of: <",
    "ERROR: Restoring ACL of <", "ERROR writing SD to <", "; Source Not Exist!\n",
    "; Junction Exists!\n", "; Create Done!\n", "; Create Failed!\n", "Source: %s; Junction: %s%s"};

// Texts that are only parts of what is shown.
const Texts kParts = {"WinUtil::GetBCDBootInfo Lack of Content [", "  Time: "};

// Whether the text is shown or logged although it may be a single word.
bool IsAskedFor(std::string_view before) {
  constexpr std::array<std::string_view, 9> kCalls = {
      "Debug(", "Info(", "Done(", "Warn(", "Error(", "Fatal(", "Out(", "W(", "SetProgress("};
  return before.find("ShowMessage(") != std::string_view::npos ||
         before.find("MessageBoxFormat(") != std::string_view::npos ||
         std::any_of(kCalls.begin(), kCalls.end(),
                     [before](std::string_view call) { return before.ends_with(call); });
}

bool HasLetter(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](unsigned char c) { return std::isalpha(c) != 0; });
}

bool IsMessage(const tests::SourceText& found) {
  const std::string text = tests::InThePage(found.text);
  if (IsAskedFor(found.before)) return text != tests::InThePage("%s");
  return HasLetter(text) && text.find(' ') != std::string::npos;
}

std::vector<fs::path> SourceFiles(std::string_view extensions) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(kTree) / "src")) {
    const std::string extension = entry.path().extension().string();
    if (!extension.empty() && extensions.find(extension + " ") != std::string_view::npos) {
      files.push_back(entry.path());
    }
  }
  EXPECT_FALSE(files.empty()) << extensions;
  return files;
}

// As they stand in the sources.
Texts Messages() {
  Texts messages;
  for (const fs::path& path : SourceFiles(".cpp .h ")) {
    for (const tests::SourceText& found : tests::SourceTexts(Read(path))) {
      if (IsMessage(found)) messages.insert(found.text);
    }
  }
  for (const fs::path& path : SourceFiles(".rc ")) {
    const auto texts = tests::ResourceTexts(Read(path));
    messages.insert(texts.begin(), texts.end());
  }
  return messages;
}

Texts PageSpans() {
  const auto spans = tests::CodeSpans(Read(fs::path(kTree) / "docs" / "operating.md"));
  return {spans.begin(), spans.end()};
}

bool IsPartOfAny(const std::string& part, const Texts& texts) {
  return std::any_of(texts.begin(), texts.end(), [&part](const std::string& text) {
    return text.find(part) != std::string::npos;
  });
}

TEST(OperatingPage, ExplainsEveryMessageOfTheProgram) {
  const Texts spans = PageSpans();
  for (const std::string& message : Messages()) {
    if (kUnseen.contains(message)) continue;
    const std::string text = tests::InThePage(message);
    EXPECT_TRUE(spans.contains(text) || (kParts.contains(message) && IsPartOfAny(text, spans)))
        << "docs/operating.md has no `" << text << "`";
  }
}

// The first cells of the rows under the headings about messages.
TEST(OperatingPage, ExplainsNoMessageThatTheProgramDoesNotHave) {
  Texts texts;
  for (const std::string& message : Messages()) texts.insert(tests::InThePage(message));
  const std::string page = Read(fs::path(kTree) / "docs" / "operating.md");
  const size_t begin = page.find("\n## Messages in the log\n");
  const size_t end = page.find("\n## Running it again\n");
  ASSERT_LT(begin, end);
  ASSERT_NE(end, std::string::npos);
  size_t rows = 0;
  for (size_t row = page.find("\n| `", begin); row < end; row = page.find("\n| `", row + 1)) {
    const std::string message =
        tests::CodeSpans(page.substr(row + 1, page.find('\n', row + 1) - row - 1)).at(0);
    const bool has_part = std::any_of(
        kParts.begin(), kParts.end(),
        [&message](const std::string& part) { return message.find(part) != std::string::npos; });
    EXPECT_TRUE(texts.contains(message) || has_part) << "no source has `" << message << "`";
    ++rows;
  }
  EXPECT_GT(rows, 60U);
}

TEST(OperatingPage, PassesOverNothingThatTheSourcesDoNotHave) {
  const Texts messages = Messages();
  for (const Texts* const texts : {&kUnseen, &kParts}) {
    for (const std::string& text : *texts) EXPECT_TRUE(messages.contains(text)) << text;
  }
}

// A heading's name in links: lower case, "-" for blanks, no punctuation.
TEST(OperatingPage, LinksToHeadingsThatItHas) {
  const std::string page = Read(fs::path(kTree) / "docs" / "operating.md");
  Texts headings;
  for (size_t at = page.find("\n##"); at != std::string::npos; at = page.find("\n##", at + 1)) {
    const size_t begin = page.find(' ', at) + 1;
    std::string name;
    for (const char c : page.substr(begin, page.find('\n', begin) - begin)) {
      const auto letter = static_cast<unsigned char>(c);
      if (std::isalnum(letter) != 0 || c == '_') name += static_cast<char>(std::tolower(letter));
      if (c == ' ') name += '-';
    }
    headings.insert(name);
  }
  EXPECT_GT(headings.size(), 15U);
  for (size_t at = page.find("](#"); at != std::string::npos; at = page.find("](#", at + 1)) {
    const std::string name = page.substr(at + 3, page.find(')', at) - at - 3);
    EXPECT_TRUE(headings.contains(name)) << name;
  }
}

}  // namespace
