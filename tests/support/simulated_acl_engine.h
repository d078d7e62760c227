// The ACL restore engine on a simulated server.
#ifndef TESTS_SUPPORT_SIMULATED_ACL_ENGINE_H_
#define TESTS_SUPPORT_SIMULATED_ACL_ENGINE_H_

#include <gtest/gtest.h>
#include <share.h>
#include <stdio.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "acl/account_sid.h"
#include "acl/acl_util.h"
#include "simulator/model/processes/local_heap.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"
#include "support/process.h"

namespace tests {

// Uses the ACL backup file C:\acl.dat and the objects that its lines name, in a process whose
// privileges have not been changed yet.
class AclEngineTest : public testing::Test {
 protected:
  using Lines = std::vector<std::string>;

  struct Options {
    bool restore_attributes = true;
    bool continue_on_error = true;
    bool with_administrators = true;
    bool with_stream = true;
    uint32_t total_entries = 1;
    acl::ProgressRange range{0.0, 100.0};
  };

  static std::string LineOf(const std::string& path, int attributes, const std::string& sddl) {
    return "\"" + path + "\"," + std::to_string(attributes) + ",\"" + sddl + "\"\r\n";
  }

  int32_t Restore(const std::string& content, const Options& options) {
    server_.files().Write(kFile, content);
    return RestoreFile(kFile, options);
  }
  int32_t Restore(const std::string& content) { return Restore(content, Options()); }

  // Report() is that of the last run.
  int32_t RestoreFile(const std::string& file, const Options& options) {
    acl::ACLUtil engine;
    engine.SetInputFile(file);
    engine.SetContinueOnError(options.continue_on_error);
    if (options.with_stream) {
      engine.SetOutputStream(common::UniqueFile(::_fsopen("C:\\report.txt", "wb", _SH_DENYNO)));
    }
    if (options.with_administrators) {
      common::UniqueLocal<void> sid;
      EXPECT_EQ(acl::GetAccountSid("Administrators", sid), 0);
      engine.SetAdminSid(std::move(sid));
    }
    return engine.RestoreFromFile(options.restore_attributes, options.total_entries, options.range);
  }

  // Returns the lines without their line ends, all of which are CR LF.
  Lines Report() {
    const std::string text = server_.files().Read("C:\\report.txt").value_or("");
    Lines lines;
    size_t begin = 0;
    for (size_t end; (end = text.find("\r\n", begin)) != std::string::npos; begin = end + 2) {
      lines.push_back(text.substr(begin, end - begin));
    }
    EXPECT_EQ(begin, text.size()) << text;
    return lines;
  }

  std::string SddlOf(const std::string& path) { return tests::SddlOf(server_, path); }

  static constexpr char kFile[] = "C:\\acl.dat";
  static constexpr char kDetected[] =
      "Input file for restore operation: <C:\\acl.dat> detected as ANSI.";

  const NewProcess process_;
  simulator::Server server_;
};

}  // namespace tests

#endif  // TESTS_SUPPORT_SIMULATED_ACL_ENGINE_H_
