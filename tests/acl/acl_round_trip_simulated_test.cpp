// Descriptors as they are met on servers: written by the engine, what is read back is the source's.
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "common/strings.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sacl_entries.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "support/process.h"
#include "support/sddl_texts.h"
#include "support/simulated_acl_engine.h"
#include "support/test_names.h"

namespace acl {
namespace {

using simulator::Ace;
using simulator::Acl;
using simulator::Descriptor;

constexpr int kInherit = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;

bool Has(const Ace& ace, int flags) { return (ace.flags & flags) != 0; }

// Whether the first of two neighbours is what a folder itself gets of the entry that the second
// passes on.
bool IsSplit(const Ace& own, const Ace& below) {
  return !Has(own, kInherit) && Has(below, INHERIT_ONLY_ACE) && Has(below, CONTAINER_INHERIT_ACE) &&
         own.sid == below.sid && own.mask == simulator::MapGeneric(below.mask);
}

// The list of a parent from which a child gets exactly the inherited entries of `list`.
std::optional<Acl> ParentList(const std::optional<Acl>& list, bool is_folder) {
  if (!list) return std::nullopt;
  std::vector<Ace> inherited;
  for (const Ace& ace : list->aces) {
    if (Has(ace, INHERITED_ACE)) inherited.push_back(ace);
  }
  Acl parent;
  parent.revision = list->revision;
  for (size_t i = 0; i < inherited.size(); ++i) {
    Ace ace = inherited[i];
    if (i + 1 < inherited.size() && IsSplit(ace, inherited[i + 1])) continue;
    int flags = ace.flags & ~INHERITED_ACE;
    if (!is_folder) flags |= OBJECT_INHERIT_ACE;
    if (is_folder && !Has(ace, kInherit)) flags |= CONTAINER_INHERIT_ACE | NO_PROPAGATE_INHERIT_ACE;
    ace.flags = static_cast<BYTE>(flags);
    parent.aces.push_back(ace);
  }
  return parent;
}

bool IsFolder(const Descriptor& descriptor) {
  for (const std::optional<Acl>* const list : {&descriptor.dacl, &descriptor.sacl}) {
    if (!*list) continue;
    for (const Ace& ace : (*list)->aces) {
      if (Has(ace, kInherit)) return true;
    }
  }
  return false;
}

// What is not given back, and what is there instead.
struct Exception {
  std::string text;
  std::string restored;  // empty when the object stays as it was
  std::string report;    // of the failure
};

const Exception kExceptions[] = {
    // Protection is looked for in front of the first entry.
    {"O:BAG:SYD:PAI", "O:BAG:SYD:AI", ""},
    // A null list is never written.
    {"O:BAG:SYD:NO_ACCESS_CONTROL", "", "ERROR writing SD to <C:\\Parent\\Object>: 1336"},
    // The last field is found behind the first character of the line.
    {"", "", "ERROR: Restoring ACL of <C:\\Parent\\Object>: 87"},
};

const Exception* FindException(const std::string& text) {
  const auto* const found =
      std::find_if(std::begin(kExceptions), std::end(kExceptions),
                   [&text](const Exception& exception) { return exception.text == text; });
  return found == std::end(kExceptions) ? nullptr : found;
}

class RoundTrip : public tests::AclEngineTest,
                  public testing::WithParamInterface<tests::SddlSample> {
 protected:
  Descriptor Parsed(const std::string& text) {
    Descriptor descriptor;
    EXPECT_EQ(simulator::ParseSddl(text, server_.security().domains(), &descriptor),
              static_cast<DWORD>(ERROR_SUCCESS));
    return descriptor;
  }

  // What the object holds in the end: the parts that the text has, both lists marked as the system
  // marks every list that it sets by name, generic rights as it stores them; the others as they
  // were. Labels, attributes and policy ids are not written, and those of the object stay.
  Descriptor Expected(Descriptor source, const Descriptor& before) {
    if (source.dacl) {
      for (Ace& ace : source.dacl->aces) {
        if (!Has(ace, INHERIT_ONLY_ACE)) ace.mask = simulator::MapGeneric(ace.mask);
      }
    }
    Descriptor expected = before;
    if (source.owner) expected.owner = source.owner;
    if (source.group) expected.group = source.group;
    constexpr int kOfDacl = SE_DACL_PRESENT | SE_DACL_PROTECTED | SE_DACL_AUTO_INHERITED;
    constexpr int kOfSacl = SE_SACL_PRESENT | SE_SACL_PROTECTED | SE_SACL_AUTO_INHERITED;
    if ((source.control & SE_DACL_PRESENT) != 0) {
      expected.dacl = source.dacl;
      expected.control = static_cast<WORD>((expected.control & ~kOfDacl) | SE_DACL_AUTO_INHERITED |
                                           (source.control & kOfDacl));
    }
    if ((source.control & SE_SACL_PRESENT) != 0) {
      if (source.sacl) std::erase_if(source.sacl->aces, simulator::HasOwnBit);
      expected.sacl = source.sacl;
      for (const Ace& ace : before.sacl ? before.sacl->aces : std::vector<Ace>{}) {
        if (simulator::HasOwnBit(ace)) expected.sacl->aces.push_back(ace);
      }
      expected.control = static_cast<WORD>((expected.control & ~kOfSacl) | SE_SACL_AUTO_INHERITED |
                                           (source.control & kOfSacl));
    }
    return expected;
  }

  std::string TextOf(const Descriptor& descriptor) {
    return simulator::SddlText(descriptor, server_.security().domains(), 0x1F);
  }
};

TEST_P(RoundTrip, GivesTheSourcesDescriptorBack) {
  // The engine upper-cases the text, conditions and attributes in it included.
  const std::string text = GetParam().text;
  const Descriptor source = Parsed(common::ToUpperAscii(text));
  const bool is_folder = IsFolder(source);
  server_.files().MakeDirectories("C:\\Parent");
  Descriptor parent = Parsed("O:BAG:SYD:PAIS:PAI");
  if (const auto list = ParentList(source.dacl, is_folder)) parent.dacl = list;
  if (const auto list = ParentList(source.sacl, is_folder)) parent.sacl = list;
  server_.files().SetDescriptor("C:\\Parent", parent);
  const std::string path = "C:\\Parent\\Object";
  if (is_folder) {
    server_.files().MakeDirectories(path);
  } else {
    server_.files().Write(path, "");
  }
  const std::string before = SddlOf(path);
  std::string expected = TextOf(Expected(source, *server_.files().DescriptorOf(path)));
  Lines report = {kDetected, "Restoring ACL of: <" + path + ">"};
  if (const Exception* const exception = FindException(text)) {
    expected = exception->restored.empty() ? before : exception->restored;
    if (!exception->report.empty()) report.push_back(exception->report);
  }

  // The second time changes nothing.
  for (int time = 1; time <= 2; ++time) {
    tests::ForgetProcess();
    EXPECT_EQ(Restore(LineOf(path, 0, text)), kRestored);
    EXPECT_EQ(Report(), report);
    EXPECT_EQ(SddlOf(path), expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, RoundTrip, testing::ValuesIn(tests::kSddlTexts),
                         tests::NamedAsPrinted());

}  // namespace
}  // namespace acl
