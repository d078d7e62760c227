// The longest target of a junction.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acl/junctions.h"
#include "simulator/model/files/files.h"
#include "simulator/model/server.h"

namespace acl {
namespace {

using Lines = std::vector<std::string>;

TEST(JunctionTarget, HasAFullPathOf1023UnitsAtMost) {
  simulator::Server server;
  server.files().MakeDirectories("C:\\Link");
  // The system takes no such path for a file: what counts is whether it is looked for.
  const std::string longest = "C:\\" + std::string(1020, 'a');
  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\" + std::wstring(1020, L'a')));
  EXPECT_EQ(server.calls().ArgumentsOf("GetFullPathNameW"), Lines{'"' + longest + "\", 1024"});
  EXPECT_EQ(server.calls().ArgumentsOf("GetFileAttributesW"), Lines{'"' + longest + '"'});

  EXPECT_FALSE(CreateJunction(L"C:\\Link", L"C:\\" + std::wstring(1021, L'a')));
  EXPECT_EQ(server.calls().ArgumentsOf("GetFileAttributesW").size(), 1U);
}

}  // namespace
}  // namespace acl
