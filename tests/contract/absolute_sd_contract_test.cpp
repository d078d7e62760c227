// Security descriptors in absolute form.
#include <windows.h>

#include <sddl.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "common/owner.h"
#include "contract/wine_differences.h"
#include "support/answers.h"
#include "support/host.h"

namespace tests {
namespace {

constexpr DWORD kAbsolute = sizeof(SECURITY_DESCRIPTOR);

struct Sizes {
  DWORD absolute = 0;
  DWORD dacl = 0;
  DWORD sacl = 0;
  DWORD owner = 0;
  DWORD group = 0;

  bool operator==(const Sizes&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Sizes& sizes) {
  return out << sizes.absolute << ", DACL " << sizes.dacl << ", SACL " << sizes.sacl << ", owner "
             << sizes.owner << ", group " << sizes.group;
}

// Room for each part, and a mark behind it.
struct Buffers {
  explicit Buffers(const Sizes& room)
      : sizes(room),
        absolute(room.absolute + 1, '#'),
        dacl(room.dacl + 1, '#'),
        sacl(room.sacl + 1, '#'),
        owner(room.owner + 1, '#'),
        group(room.group + 1, '#') {}

  BOOL Make(PSECURITY_DESCRIPTOR relative) {
    ::SetLastError(kNobodysError);
    return ::MakeAbsoluteSD(relative, absolute.data(), &sizes.absolute,
                            reinterpret_cast<PACL>(dacl.data()), &sizes.dacl,
                            reinterpret_cast<PACL>(sacl.data()), &sizes.sacl, owner.data(),
                            &sizes.owner, group.data(), &sizes.group);
  }

  SECURITY_DESCRIPTOR Made() const {
    SECURITY_DESCRIPTOR made;
    std::copy_n(absolute.data(), sizeof(made), reinterpret_cast<char*>(&made));
    return made;
  }

  bool IsUntouched() const {
    for (const std::vector<char>* part : {&absolute, &dacl, &sacl, &owner, &group}) {
      if (std::count(part->begin(), part->end(), '#') != static_cast<ptrdiff_t>(part->size())) {
        return false;
      }
    }
    return true;
  }

  Sizes sizes;
  std::vector<char> absolute;
  std::vector<char> dacl;
  std::vector<char> sacl;
  std::vector<char> owner;
  std::vector<char> group;
};

std::string Part(const std::vector<char>& buffer) { return {buffer.data(), buffer.size() - 1}; }

// O:BAG:SYD:P(A;;FA;;;BA)S:(AU;FA;SD;;;WD), the lists before the owner.
const std::string kHeader("\1\0\x14\x90\x50\0\0\0\x60\0\0\0\x14\0\0\0\x30\0\0\0", 20);
const std::string kSacl("\2\0\x1C\0\1\0\0\0\2\x80\x14\0\0\0\1\0\1\1\0\0\0\0\0\1\0\0\0\0", 28);
const std::string kDacl(
    "\2\0\x20\0\1\0\0\0\0\0\x18\0\xFF\1\x1F\0\1\2\0\0\0\0\0\5\x20\0\0\0\x20\2\0\0", 32);
const std::string kOwner("\1\2\0\0\0\0\0\5\x20\0\0\0\x20\2\0\0", 16);
const std::string kGroup("\1\1\0\0\0\0\0\5\x12\0\0\0", 12);
constexpr Sizes kSizes = {kAbsolute, 32, 28, 16, 12};

class AbsoluteContract : public HostTest {
 protected:
  // In memory of its own, aligned.
  static common::UniqueLocal<char> Relative(const std::string& bytes = kHeader + kSacl + kDacl +
                                                                       kOwner + kGroup) {
    auto* const block = static_cast<char*>(::LocalAlloc(LPTR, bytes.size()));
    std::copy(bytes.begin(), bytes.end(), block);
    return common::UniqueLocal<char>(block);
  }
};

TEST_F(AbsoluteContract, PartsAreCopiedAndPointedAt) {
  const auto relative = Relative();
  Buffers buffers(kSizes);
  ASSERT_TRUE(buffers.Make(relative.get())) << ::GetLastError();
  EXPECT_EQ(buffers.sizes, kSizes);
  EXPECT_EQ(Part(buffers.owner), kOwner);
  EXPECT_EQ(Part(buffers.group), kGroup);
  EXPECT_EQ(Part(buffers.dacl), kDacl);
  EXPECT_EQ(Part(buffers.sacl), kSacl);
  const SECURITY_DESCRIPTOR made = buffers.Made();
  EXPECT_EQ(made.Revision, SECURITY_DESCRIPTOR_REVISION);
  EXPECT_EQ(made.Control, SE_DACL_PRESENT | SE_SACL_PRESENT | SE_DACL_PROTECTED);
  EXPECT_EQ(made.Owner, buffers.owner.data());
  EXPECT_EQ(made.Group, buffers.group.data());
  EXPECT_EQ(static_cast<void*>(made.Dacl), buffers.dacl.data());
  EXPECT_EQ(static_cast<void*>(made.Sacl), buffers.sacl.data());
}

TEST_F(AbsoluteContract, NothingIsWrittenBehindAPart) {
  const auto relative = Relative();
  Buffers buffers({100, 100, 100, 100, 100});
  ASSERT_TRUE(buffers.Make(relative.get()));
  EXPECT_EQ(buffers.absolute[kAbsolute], '#');
  EXPECT_EQ(buffers.dacl[32], '#');
  EXPECT_EQ(buffers.sacl[28], '#');
  EXPECT_EQ(buffers.owner[16], '#');
  EXPECT_EQ(buffers.group[12], '#');
}

TEST_F(AbsoluteContract, WithoutRoomAllSizesAreTold) {
  const auto relative = Relative();
  Sizes sizes;
  EXPECT_EQ(ErrorOf([&] {
              return ::MakeAbsoluteSD(relative.get(), nullptr, &sizes.absolute, nullptr,
                                      &sizes.dacl, nullptr, &sizes.sacl, nullptr, &sizes.owner,
                                      nullptr, &sizes.group);
            }),
            DWORD{ERROR_INSUFFICIENT_BUFFER});
  EXPECT_EQ(sizes, kSizes);
}

TEST_F(AbsoluteContract, OneByteTooFewForAnyPartIsTooSmall) {
  const auto relative = Relative();
  for (DWORD Sizes::*const short_of :
       {&Sizes::absolute, &Sizes::dacl, &Sizes::sacl, &Sizes::owner, &Sizes::group}) {
    Sizes room = kSizes;
    --(room.*short_of);
    Buffers buffers(room);
    EXPECT_FALSE(buffers.Make(relative.get()));
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(buffers.sizes, kSizes);
    EXPECT_TRUE(buffers.IsUntouched());
  }
}

TEST_F(AbsoluteContract, PartsThatLackNeedNoRoomAndAreNull) {
  const auto relative = Relative(std::string("\1\0\0\x80", 4) + std::string(16, '\0'));
  Buffers buffers({kAbsolute, 0, 0, 0, 0});
  ASSERT_TRUE(buffers.Make(relative.get())) << ::GetLastError();
  const SECURITY_DESCRIPTOR made = buffers.Made();
  EXPECT_EQ(made.Control, 0);
  EXPECT_EQ(made.Owner, nullptr);
  EXPECT_EQ(made.Group, nullptr);
  EXPECT_EQ(made.Dacl, nullptr);
  EXPECT_EQ(made.Sacl, nullptr);
}

TEST_F(AbsoluteContract, ANullListIsPresentAndNull) {
  const auto relative = Relative(std::string("\1\0\4\x80", 4) + std::string(16, '\0'));
  Buffers buffers({kAbsolute, 0, 0, 0, 0});
  ASSERT_TRUE(buffers.Make(relative.get())) << ::GetLastError();
  EXPECT_EQ(buffers.Made().Control, SE_DACL_PRESENT);
  EXPECT_EQ(buffers.Made().Dacl, nullptr);
}

TEST_F(AbsoluteContract, AnAbsoluteDescriptorIsNotTakenForARelativeOne) {
  const auto relative = Relative();
  Buffers first(kSizes);
  ASSERT_TRUE(first.Make(relative.get()));
  SECURITY_DESCRIPTOR absolute = first.Made();
  Buffers buffers(kSizes);
  EXPECT_FALSE(buffers.Make(&absolute));
  const DWORD error = ::GetLastError();
  EXPECT_TRUE(buffers.IsUntouched());
  if (IsUnderWine()) GTEST_SKIP() << wine::kAbsoluteDescriptor;
  EXPECT_EQ(error, DWORD{ERROR_BAD_DESCRIPTOR_FORMAT});
}

struct SddlRow {
  const char* text;
  Sizes sizes;
};

// A SID has 8 bytes and 4 for each part: WD, SY and AU 12, BA and BU 16, an account's 28. A list
// has 8 bytes and for each entry 8 and its SID.
TEST_F(AbsoluteContract, SizesOfWhatTextsStandFor) {
  for (const SddlRow& row : std::vector<SddlRow>{
           {"O:BA", {kAbsolute, 0, 0, 16, 0}},
           {"G:SY", {kAbsolute, 0, 0, 0, 12}},
           {"O:S-1-5-21-1-2-3-1001G:S-1-5-21-1-2-3-513", {kAbsolute, 0, 0, 28, 28}},
           {"D:", {kAbsolute, 8, 0, 0, 0}},
           {"D:PAI", {kAbsolute, 8, 0, 0, 0}},
           {"D:(A;;FA;;;WD)", {kAbsolute, 28, 0, 0, 0}},
           {"D:(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)", {kAbsolute, 52, 0, 0, 0}},
           {"D:PAI(D;;WD;;;BU)(A;ID;0x1200a9;;;S-1-5-21-1-2-3-1001)", {kAbsolute, 68, 0, 0, 0}},
           {"S:(AU;SAFA;FA;;;WD)", {kAbsolute, 0, 28, 0, 0}},
           {"S:(AU;SA;SD;;;WD)(AU;FA;WD;;;BA)", {kAbsolute, 0, 52, 0, 0}},
           {"O:BAG:SYD:PAI(A;;FA;;;BA)", {kAbsolute, 32, 0, 16, 12}},
           {"O:SYG:BAD:(A;;FA;;;SY)S:(AU;FA;FA;;;AU)", {kAbsolute, 28, 28, 12, 16}},
       }) {
    common::UniqueLocal<void> relative;
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorA(row.text, SDDL_REVISION_1,
                                                                       relative.put(), nullptr))
        << row.text << ": " << ::GetLastError();
    Buffers asked({});
    EXPECT_FALSE(asked.Make(relative.get())) << row.text;
    EXPECT_EQ(::GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER}) << row.text;
    EXPECT_EQ(asked.sizes, row.sizes) << row.text;
    Buffers buffers(row.sizes);
    ASSERT_TRUE(buffers.Make(relative.get())) << row.text << ": " << ::GetLastError();
    if (row.sizes.owner != 0) {
      EXPECT_EQ(::GetLengthSid(buffers.owner.data()), row.sizes.owner) << row.text;
    }
  }
}

}  // namespace
}  // namespace tests
