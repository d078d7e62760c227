#include "simulator/model/security/sddl_text.h"

#include <utility>

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_parts.h"

namespace simulator {
namespace {

constexpr std::string_view kNullList = "NO_ACCESS_CONTROL";

class DescriptorReader {
 public:
  DescriptorReader(std::string_view text, const AccountDomains& domains)
      : text_(text), domains_(domains) {}

  DWORD Read(Descriptor* descriptor) {
    text_.SkipBlanks();
    while (!text_.AtEnd()) {
      const DWORD error = ReadPart();
      if (error != ERROR_SUCCESS) return error;
      text_.SkipBlanks();
    }
    *descriptor = std::move(descriptor_);
    return ERROR_SUCCESS;
  }

 private:
  DWORD ReadPart() {
    if (text_.Take("O:")) return ReadSidPart(&descriptor_.owner);
    if (text_.Take("G:")) return ReadSidPart(&descriptor_.group);
    if (text_.Take("D:")) return ReadList(kDaclKind);
    if (text_.Take("S:")) return ReadList(kSaclKind);
    return ERROR_INVALID_PARAMETER;
  }

  DWORD ReadSidPart(std::optional<Sid>* part) {
    if (*part) return ERROR_INVALID_PARAMETER;
    text_.SkipBlanks();
    return TakeSid(text_, domains_, &part->emplace());
  }

  DWORD ReadList(const ListKind& kind) {
    if ((descriptor_.control & kind.present) != 0) return ERROR_INVALID_PARAMETER;
    Set(kind.present);
    text_.SkipBlanks();
    bool is_null = false;
    while (TakeFlag(kind, &is_null)) text_.SkipBlanks();
    Acl list;
    while (text_.Peek() == '(') {
      Ace ace;
      const DWORD error = TakeAce(text_, domains_, &ace);
      if (error != ERROR_SUCCESS) return error;
      if (IsObjectAce(ace.type)) list.revision = ACL_REVISION_DS;
      list.aces.push_back(std::move(ace));
      text_.SkipBlanks();
    }
    if (is_null) return list.aces.empty() ? ERROR_SUCCESS : ERROR_INVALID_ACL;
    if (AclSize(list) > kLargestAcl) return ERROR_INVALID_ACL;
    descriptor_.*kind.list = std::move(list);
    return ERROR_SUCCESS;
  }

  bool TakeFlag(const ListKind& kind, bool* is_null) {
    if (text_.Take(kNullList)) {
      *is_null = true;
      return true;
    }
    if (text_.Take("P")) return Set(kind.is_protected);
    if (text_.Take("AR")) return Set(kind.inherit_req);
    return text_.Take("AI") && Set(kind.auto_inherited);
  }

  bool Set(SECURITY_DESCRIPTOR_CONTROL bit) {
    descriptor_.control |= bit;
    return true;
  }

  SddlCursor text_;
  const AccountDomains& domains_;
  Descriptor descriptor_;
};

std::string ListText(std::string_view name, const ListKind& kind, const Descriptor& descriptor,
                     const AccountDomains& domains) {
  const SECURITY_DESCRIPTOR_CONTROL control = descriptor.control;
  if ((control & kind.present) == 0) return "";
  std::string text(name);
  if ((control & kind.is_protected) != 0) text += "P";
  if ((control & kind.inherit_req) != 0) text += "AR";
  if ((control & kind.auto_inherited) != 0) text += "AI";
  const std::optional<Acl>& list = descriptor.*kind.list;
  if (!list) return text.append(kNullList);
  for (const Ace& ace : list->aces) text += AceText(ace, domains);
  return text;
}

}  // namespace

DWORD ParseSddl(std::string_view text, const AccountDomains& domains, Descriptor* descriptor) {
  return DescriptorReader(text, domains).Read(descriptor);
}

std::string SddlText(const Descriptor& descriptor, const AccountDomains& domains,
                     SECURITY_INFORMATION information) {
  std::string text;
  if ((information & OWNER_SECURITY_INFORMATION) != 0 && descriptor.owner) {
    text += "O:" + ShortSidText(*descriptor.owner, domains);
  }
  if ((information & GROUP_SECURITY_INFORMATION) != 0 && descriptor.group) {
    text += "G:" + ShortSidText(*descriptor.group, domains);
  }
  if ((information & DACL_SECURITY_INFORMATION) != 0) {
    text += ListText("D:", kDaclKind, descriptor, domains);
  }
  if ((information & SACL_SECURITY_INFORMATION) != 0) {
    text += ListText("S:", kSaclKind, descriptor, domains);
  }
  return text;
}

}  // namespace simulator
