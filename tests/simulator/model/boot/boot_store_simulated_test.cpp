#include <gtest/gtest.h>

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "simulator/model/boot/boot_store.h"
#include "simulator/model/server.h"
#include "simulator/tools/boot_store_file.h"
#include "support/test_names.h"

namespace simulator {
namespace {

using Texts = std::vector<std::string>;

constexpr char kFirst[] = "{11111111-0000-0000-0000-000000000000}";
constexpr char kSecond[] = "{22222222-0000-0000-0000-000000000000}";

BootStore TwoLoaders() {
  return {{{BootEntryType::kManager,
            "{bootmgr}",
            {{"default", {kFirst}}, {"displayorder", {kFirst, kSecond}}, {"timeout", {"30"}}}},
           {BootEntryType::kLoader, kFirst, {{"description", {"Windows"}}}},
           {BootEntryType::kLoader, kSecond, {{"recoverysequence", {kFirst}}}}}};
}

TEST(BootEntry, GivesNoValueForAnElementWithSeveral) {
  const BootEntry manager = TwoLoaders().entries[0];
  EXPECT_EQ(manager.Value("timeout"), "30");
  EXPECT_EQ(manager.Value("displayorder"), "");
  EXPECT_EQ(manager.Values("displayorder"), (Texts{kFirst, kSecond}));
}

TEST(BootEntry, GivesNothingForAnElementThatIsNotThere) {
  const BootEntry manager = TwoLoaders().entries[0];
  EXPECT_EQ(manager.Value("locale"), "");
  EXPECT_EQ(manager.Values("locale"), Texts());
}

TEST(BootEntry, SetReplacesAnElementWhereItStands) {
  BootEntry manager = TwoLoaders().entries[0];
  manager.Set("displayorder", {kSecond});
  const std::vector<BootElement> expected = {
      {"default", {kFirst}}, {"displayorder", {kSecond}}, {"timeout", {"30"}}};
  EXPECT_EQ(manager.elements, expected);
}

TEST(BootEntry, SetAppendsANewElement) {
  BootEntry manager = TwoLoaders().entries[0];
  manager.Set("locale", {"en-US"});
  ASSERT_EQ(manager.elements.size(), 4u);
  EXPECT_EQ(manager.elements[3], (BootElement{"locale", {"en-US"}}));
}

TEST(BootEntry, SetWithoutValuesTakesTheElementAway) {
  BootEntry manager = TwoLoaders().entries[0];
  manager.Set("default", {});
  manager.Set("locale", {});
  const std::vector<BootElement> expected = {{"displayorder", {kFirst, kSecond}},
                                             {"timeout", {"30"}}};
  EXPECT_EQ(manager.elements, expected);
}

TEST(BootStore, FindsAnEntryToChange) {
  BootStore store = TwoLoaders();
  ASSERT_NE(store.Find(kSecond), nullptr);
  store.Find(kSecond)->type = BootEntryType::kBootSector;
  EXPECT_EQ(store.entries[2].type, BootEntryType::kBootSector);
  EXPECT_EQ(store.Find("{memdiag}"), nullptr);
}

TEST(BootStore, RemovesAnEntryWithEveryReferenceToIt) {
  BootStore store = TwoLoaders();
  store.Remove(kFirst);
  const BootStore expected = {
      {{BootEntryType::kManager, "{bootmgr}", {{"displayorder", {kSecond}}, {"timeout", {"30"}}}},
       {BootEntryType::kLoader, kSecond, {}}}};
  EXPECT_EQ(store, expected);
}

TEST(BootStore, RemovesAnEntryByAnIdentifierThatLiesInIt) {
  BootStore store = TwoLoaders();
  store.Remove(store.entries[2].identifier);
  EXPECT_EQ(store.entries.size(), 2u);
  EXPECT_EQ(store.entries[0].Values("displayorder"), Texts{kFirst});
}

TEST(BootStore, KeepsATextThatOnlyReadsLikeTheIdentifier) {
  BootStore store = TwoLoaders();
  store.entries[1].Set("description", {kSecond});
  store.Remove(kSecond);
  EXPECT_EQ(store.entries[1].Value("description"), kSecond);
}

TEST(BootStore, OfABareServerStartsItsWindowsByDefault) {
  Server server;
  const Boot& boot = server.boot();
  ASSERT_EQ(boot.store.entries.size(), 2u);
  EXPECT_EQ(boot.store.entries[0].identifier, "{bootmgr}");
  EXPECT_EQ(boot.store.entries[0].Value("default"), boot.current);
  EXPECT_EQ(boot.store.entries[0].Value("displayorder"), boot.current);
  EXPECT_EQ(boot.store.entries[1].identifier, boot.current);
  EXPECT_EQ(boot.store.entries[1].Value("osdevice"), "partition=C:");
}

TEST(BootStoreFile, HoldsTheWholeStore) {
  BootStore store = TwoLoaders();
  store.entries.push_back(
      {BootEntryType::kLegacyLoader, "{ntldr}", {{"description", {"\"XP\" \\ größer\r\n"}}}});
  store.entries.push_back({BootEntryType::kBootSector, "{3}", {{"path", {""}}}});
  EXPECT_EQ(ParseBootStoreFile(BootStoreFile(store)), store);
}

TEST(BootStoreFile, HoldsAnEmptyStore) {
  EXPECT_EQ(ParseBootStoreFile(BootStoreFile({})), BootStore());
}

TEST(BootStoreFile, PassesOverAnElementWithoutValues) {
  const BootStore store = {{{BootEntryType::kLoader, "{1}", {{"nx", {}}}}}};
  const BootStore expected = {{{BootEntryType::kLoader, "{1}", {}}}};
  EXPECT_EQ(ParseBootStoreFile(BootStoreFile(store)), expected);
}

TEST(BootStoreFile, TakesABeginningForNoStore) {
  const std::string file = BootStoreFile(TwoLoaders());
  for (size_t size = 0; size < file.size(); ++size) {
    EXPECT_EQ(ParseBootStoreFile(file.substr(0, size)), std::nullopt) << size;
  }
}

TEST(BootStoreFile, ReplacesWhatIsNotUtf8) {
  const BootStore store = {{{BootEntryType::kLoader, "{1}", {{"description", {"a\xFFz"}}}}}};
  const std::optional<BootStore> read = ParseBootStoreFile(BootStoreFile(store));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->entries.at(0).Value("description"), "a\xEF\xBF\xBDz");
}

struct NoStore {
  const char* name;
  std::string bytes;
};

std::ostream& operator<<(std::ostream& out, const NoStore& test) { return out << test.name; }

class BootStoreFileRefuses : public testing::TestWithParam<NoStore> {};

TEST_P(BootStoreFileRefuses, WhatHoldsNoStore) {
  EXPECT_EQ(ParseBootStoreFile(GetParam().bytes), std::nullopt);
}

std::string FileOf(const std::string& entries) { return R"({"boot_store":[)" + entries + "]}"; }

std::string EntryOf(const std::string& elements) {
  return R"({"type":"loader","identifier":"{1}","elements":[)" + elements + "]}";
}

INSTANTIATE_TEST_SUITE_P(
    Bytes, BootStoreFileRefuses,
    testing::Values(
        NoStore{"Nothing", ""}, NoStore{"AnotherFormat", "regf"},
        NoStore{"NoText", std::string("\0\xFF\xFE{", 4)}, NoStore{"AList", "[]"},
        NoStore{"ANumber", "7"}, NoStore{"ANumberForEntries", R"({"boot_store":7})"},
        NoStore{"AnotherMember", R"({"other":[]})"}, NoStore{"DeepLists", std::string(100000, '[')},
        NoStore{"ANumberForAnEntry", FileOf("7")}, NoStore{"AnEmptyEntry", FileOf("{}")},
        NoStore{"AnEmptyIdentifier", FileOf(R"({"type":"loader","identifier":"","elements":[]})")},
        NoStore{"AnUnknownType", FileOf(R"({"type":"driver","identifier":"{1}","elements":[]})")},
        NoStore{"ANumberForAnIdentifier",
                FileOf(R"({"type":"loader","identifier":1,"elements":[]})")},
        NoStore{"NoListOfElements",
                FileOf(R"({"type":"loader","identifier":"{1}","elements":{}})")},
        NoStore{"TheSameIdentifierTwice", FileOf(EntryOf("") + "," + EntryOf(""))},
        NoStore{"AListForAnElement", FileOf(EntryOf("[]"))},
        NoStore{"NoValues", FileOf(EntryOf(R"({"name":"nx"})"))},
        NoStore{"EmptyValues", FileOf(EntryOf(R"({"name":"nx","values":[]})"))},
        NoStore{"AnEmptyName", FileOf(EntryOf(R"({"name":"","values":["OptIn"]})"))},
        NoStore{"ANumberForAValue", FileOf(EntryOf(R"({"name":"nx","values":["OptIn",7]})"))},
        NoStore{"TheSameElementTwice",
                FileOf(EntryOf(R"({"name":"nx","values":["1"]},{"name":"nx","values":["2"]})"))}),
    tests::NamedAsPrinted());

}  // namespace
}  // namespace simulator
