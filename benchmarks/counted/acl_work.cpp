#include <windows.h>

#include <share.h>
#include <stdio.h>

#include <array>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "acl/account_sid.h"
#include "acl/acl_backup.h"
#include "acl/acl_util.h"
#include "benchmarks/bare_restore.h"
#include "benchmarks/counted/work.h"
#include "simulator/model/server.h"

namespace benchmarks {
namespace {

constexpr char kFile[] = "C:\\acl.dat";
constexpr DWORD kAttributes = 32;

constexpr const char* kDescriptors[] = {
    "O:BAG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;0x1200a9;;;BU)",
    "O:SYG:SYD:PAI(D;;FW;;;BG)(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;AU)S:AI(AU;SAFA;FA;;;WD)",
    "O:S-1-5-21-397955417-626881126-188441444-1107G:BUD:PAI(A;;FA;;;SY)(A;;0x1301bf;;;BU)",
    "O:BAG:BAD:PAI(A;;FA;;;BA)",
};

struct Entry {
  std::string path;
  std::string sddl;
};

// A server with some files and a backup file of so many lines about them.
class BackupServer {
 public:
  explicit BackupServer(int lines) {
    constexpr int kFiles = 100;
    server_.calls().KeepTrace(false);
    for (int i = 0; i < kFiles; ++i) {
      const std::string path = "C:\\Data\\Department " + std::to_string(i % 20) + "\\Report " +
                               std::to_string(100 + i) + ".docx";
      server_.files().Write(path, "");
      entries_.push_back({path, kDescriptors[static_cast<size_t>(i) % std::size(kDescriptors)]});
    }
    std::string text;
    for (int i = 0; i < lines; ++i) {
      const Entry& entry = EntryOf(i);
      text +=
          "\"" + entry.path + "\"," + std::to_string(kAttributes) + ",\"" + entry.sddl + "\"\r\n";
    }
    server_.files().Write(kFile, std::move(text));
  }

  Entry& EntryOf(int line) { return entries_[static_cast<size_t>(line) % entries_.size()]; }

 private:
  simulator::Server server_;
  std::vector<Entry> entries_;
};

// Calls `visit` for each line, as fgets returns it. Returns true if there were so many.
template <typename Visit>
bool VisitLines(int lines, Visit visit) {
  const common::UniqueFile file(::_fsopen(kFile, "rt", _SH_DENYNO));
  std::array<char, 8192> line{};
  int count = 0;
  while (file && std::fgets(line.data(), 8190, file.get()) != nullptr) {
    visit(line.data());
    ++count;
  }
  return count == lines;
}

}  // namespace

Work RestoreLines(int lines) {
  return [lines, server = std::make_shared<BackupServer>(lines)] {
    acl::ACLUtil engine;
    common::UniqueLocal<void> administrators;
    if (acl::GetAccountSid("Administrators", administrators) != 0) return false;
    engine.SetAdminSid(std::move(administrators));
    engine.SetInputFile(kFile);
    return engine.RestoreFromFile(true, static_cast<uint32_t>(lines), {0, 100}) == acl::kRestored;
  };
}

Work RestoreLinesBare(int lines) {
  return [lines, server = std::make_shared<BackupServer>(lines)] {
    acl::ACLUtil privileges;
    const common::UniqueFile file(::_fsopen(kFile, "rt", _SH_DENYNO));
    if (privileges.EnablePrivileges() != 0 || !file) return false;
    std::array<char, 4096> block{};
    while (std::fread(block.data(), 1, block.size(), file.get()) == block.size()) continue;
    for (int line = 0; line < lines; ++line) {
      Entry& entry = server->EntryOf(line);
      RestoreBare(entry.path, kAttributes, entry.sddl);
    }
    return true;
  };
}

Work SplitLines(int lines) {
  return [lines, server = std::make_shared<BackupServer>(lines)] {
    uint32_t parts = 0;
    const bool is_whole = VisitLines(lines, [&parts](const char* text) {
      parts |= acl::SecurityInformationOf(acl::ParseAclLine(text).Sddl);
    });
    return is_whole && (parts & DACL_SECURITY_INFORMATION) != 0;
  };
}

Work ReadLines(int lines) {
  return [lines, server = std::make_shared<BackupServer>(lines)] {
    return VisitLines(lines, [](const char* /*text*/) {});
  };
}

}  // namespace benchmarks
