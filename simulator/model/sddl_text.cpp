#include "simulator/model/sddl_text.h"

#include <algorithm>
#include <utility>

#include "simulator/model/sddl_ace.h"
#include "simulator/model/sddl_cursor.h"
#include "simulator/model/sddl_sids.h"

namespace simulator {
namespace {

constexpr std::string_view kNullList = "NO_ACCESS_CONTROL";

// The bits of a list in SECURITY_DESCRIPTOR_CONTROL.
struct ListBits {
  SECURITY_DESCRIPTOR_CONTROL present;
  SECURITY_DESCRIPTOR_CONTROL is_protected;
  SECURITY_DESCRIPTOR_CONTROL inherit_req;
  SECURITY_DESCRIPTOR_CONTROL inherited;
};
constexpr ListBits kDacl{SE_DACL_PRESENT, SE_DACL_PROTECTED, SE_DACL_AUTO_INHERIT_REQ,
                         SE_DACL_AUTO_INHERITED};
constexpr ListBits kSacl{SE_SACL_PRESENT, SE_SACL_PROTECTED, SE_SACL_AUTO_INHERIT_REQ,
                         SE_SACL_AUTO_INHERITED};

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
    if (text_.Take("D:")) return ReadList(kDacl, &descriptor_.dacl);
    if (text_.Take("S:")) return ReadList(kSacl, &descriptor_.sacl);
    return ERROR_INVALID_PARAMETER;
  }

  DWORD ReadSidPart(std::optional<Sid>* part) {
    if (*part) return ERROR_INVALID_PARAMETER;
    text_.SkipBlanks();
    return TakeSid(text_, domains_, &part->emplace());
  }

  DWORD ReadList(const ListBits& bits, std::optional<Acl>* part) {
    if ((descriptor_.control & bits.present) != 0) return ERROR_INVALID_PARAMETER;
    Set(bits.present);
    text_.SkipBlanks();
    bool is_null = false;
    while (TakeFlag(bits, &is_null)) text_.SkipBlanks();
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
    *part = std::move(list);
    return ERROR_SUCCESS;
  }

  bool TakeFlag(const ListBits& bits, bool* is_null) {
    if (text_.Take(kNullList)) {
      *is_null = true;
      return true;
    }
    if (text_.Take("P")) return Set(bits.is_protected);
    if (text_.Take("AR")) return Set(bits.inherit_req);
    return text_.Take("AI") && Set(bits.inherited);
  }

  bool Set(SECURITY_DESCRIPTOR_CONTROL bit) {
    descriptor_.control |= bit;
    return true;
  }

  SddlCursor text_;
  const AccountDomains& domains_;
  Descriptor descriptor_;
};

bool IsLabel(const Ace& ace) { return ace.type == SYSTEM_MANDATORY_LABEL_ACE_TYPE; }

std::string ListText(std::string_view name, const ListBits& bits,
                     SECURITY_DESCRIPTOR_CONTROL control, const std::optional<Acl>& list,
                     const AccountDomains& domains) {
  if ((control & bits.present) == 0) return "";
  std::string text(name);
  if ((control & bits.is_protected) != 0) text += "P";
  if ((control & bits.inherit_req) != 0) text += "AR";
  if ((control & bits.inherited) != 0) text += "AI";
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
    text += ListText("D:", kDacl, descriptor.control, descriptor.dacl, domains);
  }
  if ((information & SACL_SECURITY_INFORMATION) != 0) {
    text += ListText("S:", kSacl, descriptor.control, descriptor.sacl, domains);
  } else if ((information & LABEL_SECURITY_INFORMATION) != 0 && descriptor.sacl) {
    Acl labels = *descriptor.sacl;
    std::erase_if(labels.aces, [](const Ace& ace) { return !IsLabel(ace); });
    text += ListText("S:", kSacl, descriptor.control, labels, domains);
  }
  return text;
}

}  // namespace simulator
