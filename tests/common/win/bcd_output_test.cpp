#include "common/win/bcd_output.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "support/samples.h"
#include "support/test_names.h"

namespace common::win {
namespace {

using Lines = std::vector<std::string>;

constexpr char kEnUs[] = "en-us";

std::string Parse(const std::string& text, BCDBootInfo& info) {
  return ParseBootConfiguration(text, kEnUs, info);
}

// What the tool printed on servers and clients of many versions and languages.

struct Sample {
  const char* file;
  BCDBootInfo info;
  const char* failure = "";
};

std::ostream& operator<<(std::ostream& out, const Sample& sample) { return out << sample.file; }

class BootConfigurationSample : public testing::TestWithParam<Sample> {};

TEST_P(BootConfigurationSample, GivesWhatStandsInIt) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(tests::ReadToolSample("bcdedit/", GetParam().file), info), GetParam().failure);
  EXPECT_EQ(info.RawLocale, GetParam().info.RawLocale);
  EXPECT_EQ(info.Locale, GetParam().info.Locale);
  EXPECT_EQ(info.DefaultId, GetParam().info.DefaultId);
  EXPECT_EQ(info.DisplayOrder, GetParam().info.DisplayOrder);
}

const BCDBootInfo kCurrentAlone = {"en-US", "en-us", "{current}", {"{current}"}};

INSTANTIATE_TEST_SUITE_P(
    All, BootConfigurationSample,
    testing::Values(Sample{"de-DE-win10-bios-two-loaders.txt",
                           {"de-DE",
                            "de-DE",
                            "{current}",
                            {"{current}", "{40410e52-f5c6-11e4-b335-b9c94abbc75d}"}}},
                    Sample{"en-server-store-attached-disk.txt",
                           {"en-US", "en-us", "{default}", {"{default}"}}},
                    Sample{"en-server2016-bios-cloud-device-unknown-boot.txt", kCurrentAlone},
                    Sample{"en-server2016-bios-cloud-gen1.txt", kCurrentAlone},
                    Sample{"en-server2022-uefi-secondary-plex.txt",
                           {"en-US",
                            "en-us",
                            "{current}",
                            {"{current}", "{063973c4-d0ac-11ed-b884-cfa59b967f58}"}}},
                    Sample{"en-vista-bios-bootmgr-without-resumeobject.txt", kCurrentAlone},
                    Sample{"en-win10-bios-ntldr-added.txt",
                           {"en-US", "en-us", "{current}", {"{ntldr}", "{current}"}}},
                    Sample{"en-win7-bios-three-entries-default-not-current.txt",
                           {"en-US",
                            "en-us",
                            "{default}",
                            {"{current}", "{default}", "{742ab910-5f22-11df-9fd2-c2ca2fb681b7}"}}},
                    Sample{"en-win8-bios-three-loaders-vhd.txt",
                           {"en-US",
                            "en-us",
                            "{current}",
                            {"{current}", "{244905a2-985a-11de-8155-c187f01c6abe}",
                             "{2449059d-985a-11de-8155-c187f01c6abe}"}}},
                    Sample{"en-win8.1-uefi-bootmgr-path-changed.txt", kCurrentAlone},
                    Sample{"pt-PT-win7-bios-no-default.txt",
                           {"pt-PT", "pt-PT", "", {}},
                           "WinUtil::GetBCDBootInfo Lack of Content [default]."},
                    Sample{"zh-CN-win10-bios-real-mode-boot-sector.txt",
                           {"zh-CN",
                            "zh-CN",
                            "{current}",
                            {"{current}", "{334d38b1-b3ef-11e7-8bea-ac9e17e11ccd}"}}},
                    Sample{"zh-CN-win10-uefi-two-loaders-current-second.txt",
                           {"zh-CN",
                            "zh-CN",
                            "{current}",
                            {"{edd55b4d-0bc1-11eb-8106-a0043c6d1b90}", "{current}"}}}),
    tests::NamedAsPrinted());

TEST(BootConfigurationSamples, AreAllTested) { EXPECT_EQ(tests::CountSamples("bcdedit"), 13); }

// Values.

TEST(GetValueAfterKey, IsWhatFollowsTheKeyWithoutBlanks) {
  EXPECT_EQ(GetValueAfterKey("default                 {current}  ", "default"), "{current}");
}

TEST(GetValueAfterKey, StartsBehindTheFirstKey) {
  EXPECT_EQ(GetValueAfterKey("my key a key b", "key"), "a key b");
}

TEST(GetValueAfterKey, KeepsTabs) { EXPECT_EQ(GetValueAfterKey("key\tvalue", "key"), "\tvalue"); }

TEST(GetValueAfterKey, IsEmptyWithoutTheKeyOrAValue) {
  EXPECT_EQ(GetValueAfterKey("locale zh-CN", "default"), "");
  EXPECT_EQ(GetValueAfterKey("Locale zh-CN", "locale"), "");
  EXPECT_EQ(GetValueAfterKey("locale   ", "locale"), "");
  EXPECT_EQ(GetValueAfterKey("", "locale"), "");
}

TEST(GetValueAfterKey, IsTheWholeLineForAnEmptyKey) {
  EXPECT_EQ(GetValueAfterKey("  a line ", ""), "a line");
}

// The facts, each in its place in a listing that is else in order.

// Lines end with CR LF.
std::string Listing(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

const std::string kOrder = Listing({"displayorder  {a}", "              {b}", "toolsdisplayorder"});

struct LocaleCase {
  const char* name;
  Lines locales;
  const char* raw;
  const char* locale;
};

std::ostream& operator<<(std::ostream& out, const LocaleCase& test) { return out << test.name; }

class BootLocale : public testing::TestWithParam<LocaleCase> {};

TEST_P(BootLocale, IsTheLastOneThatIsNotTheDefault) {
  std::string text = Listing({"default {a}"});
  for (const std::string& locale : GetParam().locales) text += Listing({"locale  " + locale});
  BCDBootInfo info;
  EXPECT_EQ(Parse(text + kOrder, info), "");
  EXPECT_EQ(info.RawLocale, GetParam().raw);
  EXPECT_EQ(info.Locale, GetParam().locale);
}

INSTANTIATE_TEST_SUITE_P(
    Locales, BootLocale,
    testing::Values(LocaleCase{"English", {"en-US", "en-US"}, "en-US", "en-us"},
                    LocaleCase{"OtherLoader", {"en-US", "zh-CN"}, "en-US", "zh-CN"},
                    LocaleCase{"OtherManager", {"zh-CN", "en-US"}, "zh-CN", "zh-CN"},
                    LocaleCase{
                        "SeveralOthers", {"en-US", "zh-CN", "de-DE", "EN-us"}, "en-US", "de-DE"},
                    LocaleCase{"AnyCase", {"EN-US"}, "EN-US", "en-us"},
                    LocaleCase{"OtherInAnyCase", {"ZH-cn"}, "ZH-cn", "ZH-cn"},
                    LocaleCase{"FirstWithoutAValue", {"", "zh-CN"}, "", "zh-CN"},
                    LocaleCase{"AnyLength", {"sr-Latn-RS", "ja", "en-US"}, "sr-Latn-RS", "ja"},
                    LocaleCase{"LaterWithoutAValue", {"en-US", "", "zh-CN", ""}, "en-US", "zh-CN"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(BootLocales, AreKeyedInLowerCase) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(Listing({"default {a}", "Locale zh-CN", "locale en-US"}) + kOrder, info), "");
  EXPECT_EQ(info.RawLocale, "en-US");
  EXPECT_EQ(info.Locale, "en-us");
}

TEST(BootDefault, IsTheLastOneWithAValue) {
  BCDBootInfo info;
  EXPECT_EQ(
      Parse(Listing({"default {x}", "default {a}", "default", "locale en-US"}) + kOrder, info), "");
  EXPECT_EQ(info.DefaultId, "{a}");
}

TEST(BootDefault, IsAnyLineThatBeginsWithTheKey) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(Listing({"  default{a}  ", "locale en-US"}) + kOrder, info), "");
  EXPECT_EQ(info.DefaultId, "{a}");
}

TEST(BootDefault, IsNoShorterNoIndentedByATabNoOtherCase) {
  BCDBootInfo info;
  EXPECT_EQ(
      Parse(Listing({"defaul", "\tdefault {a}", "Default {a}", "my default {a}", "locale en-US"}) +
                kOrder,
            info),
      "WinUtil::GetBCDBootInfo Lack of Content [default].");
}

TEST(BootDisplayOrder, HoldsEveryLineUpToTheTools) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(Listing({"default {b}", "locale en-US", "displayorder            {a}",
                           "                        {b}", "", "   ", "{c d}", "\"q\"",
                           "toolsdisplayorder       {memdiag}"}),
                  info),
            "");
  EXPECT_EQ(info.DisplayOrder, (Lines{"{a}", "{b}", "{c d}", "\"q\""}));
}

TEST(BootDisplayOrder, StartsBehindTheFirstKeyWhereverItStands) {
  BCDBootInfo info;
  EXPECT_EQ(Parse("default {a}\r\nlocale x\r\nmydisplayorder {a} toolsdisplayorder", info), "");
  EXPECT_EQ(info.DisplayOrder, Lines{"{a}"});
}

TEST(BootDisplayOrder, EndsAtTheFirstToolsOrder) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(Listing({"default {a}", "locale x", "displayorder {a}", "toolsdisplayorder {b}",
                           "{c}", "toolsdisplayorder {d}"}),
                  info),
            "");
  EXPECT_EQ(info.DisplayOrder, Lines{"{a}"});
}

TEST(BootDisplayOrder, TakesLineFeedsAloneForText) {
  BCDBootInfo info;
  EXPECT_EQ(Parse("default {a}\r\nlocale x\r\ndisplayorder {a}\n{b}\r\ntoolsdisplayorder", info),
            "WinUtil::GetBCDBootInfo Default Not In Display Order.");
  EXPECT_EQ(info.DisplayOrder, Lines{"{a}\n{b}"});
}

TEST(BootDisplayOrder, MayBeLong) {
  std::string text = "default {9999}\r\nlocale zh-CN\r\ndisplayorder ";
  for (int i = 0; i < 10'000; ++i) text += "{" + std::to_string(i) + "}\r\n";
  BCDBootInfo info;
  EXPECT_EQ(Parse(text + "toolsdisplayorder {memdiag}\r\n", info), "");
  ASSERT_EQ(info.DisplayOrder.size(), 10'000U);
  EXPECT_EQ(info.DisplayOrder[0], "{0}");
  EXPECT_EQ(info.DisplayOrder[9'999], "{9999}");
}

// The checks and their order. Each row lacks one thing more than the last.

struct Lack {
  const char* name;
  std::string text;
  const char* failure;
};

std::ostream& operator<<(std::ostream& out, const Lack& test) { return out << test.name; }

class IncompleteListing : public testing::TestWithParam<Lack> {};

TEST_P(IncompleteListing, FailsWithTheFirstThingThatItLacks) {
  BCDBootInfo info;
  EXPECT_EQ(Parse(GetParam().text, info),
            std::string("WinUtil::GetBCDBootInfo ") + GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    Lacks, IncompleteListing,
    testing::Values(
        Lack{"DefaultNotDisplayed",
             Listing({"default {x}", "locale en-US", "displayorder {a}", "toolsdisplayorder {x}"}),
             "Default Not In Display Order."},
        Lack{"DefaultInAnotherCase",
             Listing({"default {A}", "locale en-US", "displayorder {a}", "toolsdisplayorder"}),
             "Default Not In Display Order."},
        Lack{"DefaultWithinAnotherIdentifier",
             Listing({"default {a}", "locale en-US", "displayorder {a} {b}", "toolsdisplayorder"}),
             "Default Not In Display Order."},
        Lack{"NothingDisplayed",
             Listing({"default {a}", "locale en-US", "displayorder", "", "toolsdisplayorder {a}"}),
             "OS Loaders Empty."},
        Lack{"NoToolsAfterTheOrder",
             Listing({"toolsdisplay", "default {a}", "locale en-US", "displayorder {a}"}),
             "Lack of Content [toolsdisplayorder]."},
        Lack{"OrderOnlyInTheToolsOrder",
             Listing({"default {a}", "locale en-US", "toolsdisplayorder {a}"}),
             "Lack of Content [toolsdisplayorder]."},
        Lack{"NoOrder", Listing({"default {a}", "locale en-US", "display {a}"}),
             "Lack of Content [displayorder]."},
        Lack{"NoLocale", Listing({"default {a}", "Locale en-US"}), "Lack of Content [locale]."},
        Lack{"LocaleWithoutAValue", Listing({"default {a}", "locale"}) + kOrder,
             "Lack of Content [locale]."},
        Lack{"NoDefault", Listing({"locale en-US"}) + kOrder, "Lack of Content [default]."},
        Lack{"Localised", Listing({"Standard {current}", "Gebietsschema de-DE"}),
             "Lack of Content [default]."},
        Lack{"NoLineEnds", "default {a} locale en-US displayorder {a} toolsdisplayorder",
             "Lack of Content [locale]."},
        Lack{"Nothing", "", "Lack of Content [default]."}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(IncompleteListings, KeepWhatWasReadBefore) {
  BCDBootInfo info;
  EXPECT_NE(Parse(Listing({"default {x}", "locale zh-CN", "displayorder {a}", "toolsdisplayorder"}),
                  info),
            "");
  EXPECT_EQ(info.DefaultId, "{x}");
  EXPECT_EQ(info.RawLocale, "zh-CN");
  EXPECT_EQ(info.Locale, "zh-CN");
  EXPECT_EQ(info.DisplayOrder, Lines{"{a}"});
}

TEST(AnyBytes, AreReadWithoutHarm) {
  uint32_t state = 1;
  const Lines pieces = {
      "default", "locale", "displayorder", "tools", "\r\n", " ", "{current}", std::string(1, '\0'),
      "\xFF",    "en-US",  "\n",           "\r",    "\t"};
  for (int run = 0; run < 3000; ++run) {
    std::string text;
    for (int i = 0; i < 40; ++i) {
      state = state * 1664525 + 1013904223;
      text += pieces[(state >> 16) % pieces.size()];
    }
    BCDBootInfo info;
    const std::string failure = Parse(text, info);
    EXPECT_TRUE(failure.empty() || failure.starts_with("WinUtil::GetBCDBootInfo ")) << text;
    if (failure.empty()) {
      EXPECT_FALSE(info.DisplayOrder.empty());
    }
  }
}

}  // namespace
}  // namespace common::win
