// The junction backup file of a volume.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "acl/junctions.h"
#include "common/strings.h"
#include "fuzz/expect.h"
#include "fuzz/targets.h"
#include "simulator/model/server.h"

namespace fuzz {
namespace {

constexpr std::array<std::string_view, 4> kOutcomes = {"; Source Not Exist!", "; Junction Exists!",
                                                       "; Create Done!", "; Create Failed!"};

// Folders to lead to, and what may stand where a junction is to be.
void Prepare(simulator::Server& server) {
  simulator::Files& files = server.files();
  files.MakeDirectories("C:\\Data\\Deep");
  files.MakeDirectories("C:\\Full\\Folder");
  files.MakeDirectories("C:\\Empty");
  files.Write("C:\\file", "x");
  files.MakeJunction("C:\\Link", "C:\\Data");
  files.MakeJunction("C:\\Lost", "Q:\\Nowhere");
  files.MakeJunction("C:\\Data\\Loop", "C:\\Data");
}

bool IsPlain(std::string_view bytes) {
  return bytes.find_first_of(std::string_view("\0\r\x1A", 3)) == std::string_view::npos;
}

// The lines that tell of a junction.
size_t CountJunctions(std::string_view bytes) {
  constexpr size_t kLongestLine = 521;
  std::vector<std::string> lines;
  common::Split(bytes, "\n", lines);
  return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
    std::vector<std::string> fields;
    if (line.size() <= kLongestLine) common::Split(line, ";", fields);
    return fields.size() == 2;
  }));
}

}  // namespace

void JunctionList(std::string_view bytes) {
  simulator::Server server;
  Prepare(server);
  server.files().Write("C:\\list.dat", std::string(bytes));
  Expect(acl::RestoreJunctionsFromFile(L"C:\\list.dat", L"C:\\report.txt") == 0,
         "a list that can be read is restored");

  std::vector<std::string> report;
  common::Split(server.files().Read("C:\\report.txt").value_or(""), "\r\n", report);
  if (IsPlain(bytes)) {
    Expect(report.size() == CountJunctions(bytes), "each junction has its line in the report");
    Expect(std::all_of(report.begin(), report.end(),
                       [](const std::string& line) {
                         return line.starts_with("Source: ") &&
                                std::any_of(kOutcomes.begin(), kOutcomes.end(),
                                            [&line](std::string_view outcome) {
                                              return line.ends_with(outcome);
                                            });
                       }),
           "a line tells what became of the junction");
  }
  Expect(server.OpenHandles().empty(), "no handle is left");
  Expect(server.files().Exists("C:\\Full\\Folder"), "a folder with something in it stays");
}

}  // namespace fuzz
