// A long list restored by the program's engine, and by bare calls on arguments that are ready.
#include <fstream>
#include <stdexcept>
#include <string>

#include "acl/acl_backup.h"
#include "acl/acl_restore.h"
#include "acl/acl_util.h"
#include "benchmarks/bare_restore.h"
#include "logger/b_logger.h"
#include "wine/measures/programs/measure/measure.h"

namespace benchmarks {
namespace {

std::vector<acl::AclBackupRecord> RecordsOf(const std::string& list) {
  std::ifstream file(list);
  std::vector<acl::AclBackupRecord> records;
  for (std::string line; std::getline(file, line);) records.push_back(acl::ParseAclLine(line));
  if (records.empty()) throw std::runtime_error("cannot read " + list);
  return records;
}

void RestoreByEngine(logger::Logger& logger, const std::string& list, size_t lines) {
  acl::ACLUtil::privileges_enabled = false;
  acl::ProgressRange progress{0, 100};
  if (acl::RestoreACLFile(logger, "C:\\", list, static_cast<uint32_t>(lines), progress) !=
      acl::kRestored) {
    throw std::runtime_error("the engine has failed");
  }
}

void RestoreByCalls(std::vector<acl::AclBackupRecord>& records) {
  acl::ACLUtil::privileges_enabled = false;
  acl::ACLUtil privileges;
  static_cast<void>(privileges.EnablePrivileges());
  for (acl::AclBackupRecord& record : records) {
    RestoreBare(record.Path, static_cast<DWORD>(record.Attributes), record.Sddl);
  }
}

}  // namespace

int MeasureLists(const Arguments& arguments) {
  const int rounds = std::stoi(arguments.at(0));
  const std::string& list = arguments.at(1);
  std::vector<acl::AclBackupRecord> records = RecordsOf(list);
  logger::BLogger logger("measure", "C:\\");
  // The first of each finds nothing in the machine's memory.
  for (int round = -1; round < rounds; ++round) {
    const int64_t begin = Microseconds();
    RestoreByEngine(logger, list, records.size());
    const int64_t middle = Microseconds();
    RestoreByCalls(records);
    const int64_t end = Microseconds();
    if (round < 0) continue;
    Tell("program", middle - begin);
    Tell("reference", end - middle);
  }
  return 0;
}

}  // namespace benchmarks
