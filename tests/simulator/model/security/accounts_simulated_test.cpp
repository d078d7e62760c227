#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "simulator/model/security/access.h"
#include "simulator/model/security/accounts.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"

namespace simulator {
namespace {

const AccountDomains kDomains = {{5, {21, 1, 2, 3}}, {}};

System Speaking(LANGID language) {
  System system;
  system.language = language;
  return system;
}

std::optional<Account> Find(std::string_view name, LANGID language = 1033) {
  return FindAccount(name, Speaking(language), kDomains);
}

struct Row {
  LANGID language;
  const char* name;
  const char* sid;  // null when there is no such account
  const char* domain;
  SID_NAME_USE use;
};

void ExpectFound(const Row& row) {
  const std::optional<Account> found = Find(row.name, row.language);
  ASSERT_EQ(found.has_value(), row.sid != nullptr) << row.language << " " << row.name;
  if (!found) return;
  EXPECT_EQ(SidText(found->sid), row.sid) << row.name;
  EXPECT_EQ(found->domain, row.domain) << row.name;
  EXPECT_EQ(found->use, row.use) << row.name;
}

TEST(FindAccount, GoesByTheLanguageOfTheServer) {
  for (const Row& row : std::vector<Row>{
           {1033, "Administrators", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {2052, "Administrators", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {1031, "Administrators", nullptr, "", SidTypeUnknown},
           {1031, "Administratoren", "S-1-5-32-544", "VORDEFINIERT", SidTypeAlias},
           {1033, "Administratoren", nullptr, "", SidTypeUnknown},
           {1031, "VORDEFINIERT\\Benutzer", "S-1-5-32-545", "VORDEFINIERT", SidTypeAlias},
           {1031, "BUILTIN\\Benutzer", nullptr, "", SidTypeUnknown},
           {1031, "Gäste", "S-1-5-32-546", "VORDEFINIERT", SidTypeAlias},
           {1031, "Jeder", "S-1-1-0", "", SidTypeWellKnownGroup},
           {2052, "Everyone", "S-1-1-0", "", SidTypeWellKnownGroup},
           {1031, "SYSTEM", "S-1-5-18", "NT-AUTORITÄT", SidTypeWellKnownGroup},
       }) {
    ExpectFound(row);
  }
}

TEST(FindAccount, GivesTheServersOwnUsersItsDomain) {
  const std::optional<Account> found = Find("migrated\\administrator");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->sid, (Sid{5, {21, 1, 2, 3, 500}}));
  EXPECT_EQ(found->domain, "MIGRATED");
  EXPECT_EQ(found->use, SidTypeUser);
  EXPECT_EQ(Find("Guest")->sid, (Sid{5, {21, 1, 2, 3, 501}}));
}

TEST(FindAccount, TakesNoDomainOfNothing) { EXPECT_FALSE(Find("\\Everyone")); }

TEST(FindAccount, KnowsTheAdministratorsInEveryLanguage) {
  for (const Row& row : std::vector<Row>{
           {1036, "Administrateurs", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {3084, "Administrateurs", "S-1-5-32-544", "BUILTIN", SidTypeAlias},  // of Canada
           {1036, "Administrators", nullptr, "", SidTypeUnknown},
           {3082, "Administradores", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {1046, "Administradores", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {1049, "Администраторы", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {1041, "Administrators", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
           {65535, "Administrators", "S-1-5-32-544", "BUILTIN", SidTypeAlias},
       }) {
    ExpectFound(row);
  }
}

TEST(FindAccount, TakesTheEnglishNameWhereNoneIsKnown) {
  EXPECT_TRUE(Find("Users", 1036));
  EXPECT_TRUE(Find("NT AUTHORITY\\SYSTEM", 1036));
}

class AccountCallsTest : public testing::Test {
 protected:
  BOOL LookUp(const char* name) {
    return ::LookupAccountNameA(nullptr, name, sid_, &sid_size_, domain_, &domain_size_, &use_);
  }

  Server server_;
  char sid_[SID_MAX_SUB_AUTHORITIES * 4 + 8] = {};
  DWORD sid_size_ = sizeof(sid_);
  char domain_[32] = {};
  DWORD domain_size_ = sizeof(domain_);
  SID_NAME_USE use_ = SidTypeUnknown;
};

TEST_F(AccountCallsTest, AskTheServersLanguage) {
  server_.system().language = 1031;
  EXPECT_FALSE(LookUp("Administrators"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NONE_MAPPED});
  EXPECT_TRUE(LookUp("Administratoren"));
  EXPECT_STREQ(domain_, "VORDEFINIERT");
}

TEST_F(AccountCallsTest, KnowTheUserOfTheToken) {
  ASSERT_TRUE(LookUp("Administrator"));
  EXPECT_EQ(ReadSid(std::string_view(sid_, sid_size_)), server_.security().identity().user);
}

TEST_F(AccountCallsTest, FailWhenFaultsAreDue) {
  server_.calls().FailNext("LookupAccountNameA", ERROR_NOT_ENOUGH_MEMORY);
  EXPECT_FALSE(LookUp("Administrators"));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_NOT_ENOUGH_MEMORY});
  ASSERT_TRUE(LookUp("Administrators"));
  server_.calls().FailNext("CopySid", ERROR_INVALID_PARAMETER);
  char copy[16] = {};
  EXPECT_FALSE(::CopySid(sizeof(copy), copy, sid_));
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_INVALID_PARAMETER});
  EXPECT_EQ(copy[0], 0);
}

TEST_F(AccountCallsTest, AbortForWhatIsNotHonoured) {
  EXPECT_DEATH(
      ::LookupAccountNameA("SERVER", "Users", sid_, &sid_size_, domain_, &domain_size_, &use_),
      "system name");
  EXPECT_DEATH(LookUp(""), "no name");
}

}  // namespace
}  // namespace simulator
