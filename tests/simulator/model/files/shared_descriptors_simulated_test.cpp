// The descriptors that new files and added volumes get.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "simulator/model/files/files.h"
#include "simulator/model/files/node.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/security/access.h"
#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"
#include "simulator/model/security/security.h"
#include "simulator/model/server.h"
#include "support/descriptors_simulated.h"

namespace simulator {
namespace {

constexpr SECURITY_INFORMATION kDacl = DACL_SECURITY_INFORMATION;

class NewDescriptors : public testing::Test {
 protected:
  std::shared_ptr<const Descriptor> Parse(const std::string& sddl) {
    Descriptor descriptor;
    EXPECT_EQ(ParseSddl(sddl, server_.security().domains(), &descriptor), DWORD{ERROR_SUCCESS});
    return std::make_shared<const Descriptor>(descriptor);
  }
  std::string DaclOf(const Node& node) {
    return SddlText(*node.security, server_.security().domains(), kDacl);
  }

  Server server_;
  FileSystem& files_ = server_.file_system();
};

TEST_F(NewDescriptors, OfARootAreThoseOfAFormattedVolume) {
  files_.MountEmpty('D');
  EXPECT_EQ(tests::SddlOf(server_, "D:\\"),
            "O:BAG:SYD:AI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)(A;OICIIO;GA;;;CO)"
            "(A;OICI;0x1200a9;;;BU)(A;CI;LC;;;BU)(A;CIIO;DC;;;BU)(A;;0x1200a9;;;WD)");
}

// The creator is Administrator, who makes files for his group Administrators.
TEST_F(NewDescriptors, OfAFileComeFromItsFolder) {
  files_.MakeDirectories("C:\\folder");
  tests::Secure(server_, "C:\\folder", "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(A;CI;FR;;;BU)(A;OI;FR;;;AU)");
  files_.Write("C:\\folder\\a.txt", "x");
  const auto file = files_.DescriptorOf("C:\\folder\\a.txt");
  ASSERT_TRUE(file);
  EXPECT_EQ(SddlText(*file, server_.security().domains(), kDacl),
            "D:AI(A;ID;FA;;;SY)(A;ID;FR;;;AU)");
  EXPECT_EQ(file->owner, server_.security().identity().default_owner);
}

TEST_F(NewDescriptors, OfAFolderComeFromItsFolderWhoeverMakesIt) {
  files_.MakeDirectories("C:\\folder");
  tests::Secure(server_, "C:\\folder", "O:SYG:SYD:PAI(A;OICI;FA;;;BA)");
  ASSERT_EQ(files_.MakeDirectory("C:\\folder\\new"), DWORD{ERROR_SUCCESS});
  const auto made = files_.DescriptorOf("C:\\folder\\new");
  ASSERT_TRUE(made);
  EXPECT_EQ(SddlText(*made, server_.security().domains(), kDacl), "D:AI(A;OICIID;FA;;;BA)");
}

TEST_F(NewDescriptors, AreOneObjectForAllThatGetTheSame) {
  const auto volume = files_.AddVolume({});
  files_.WriteOn(*volume, "a", "");
  files_.WriteOn(*volume, "b", "");
  files_.WriteOn(*volume, "folder\\c", "");
  Node& root = *volume->root;
  EXPECT_EQ(root.Child("a")->security, root.Child("b")->security);
  EXPECT_NE(root.Child("a")->security, root.Child("folder")->security);
}

// As the program sets them, one after the other.
TEST_F(NewDescriptors, AreOneObjectForAllThatAreGivenTheSame) {
  for (const char* const path : {"C:\\a", "C:\\b", "C:\\c"}) files_.Write(path, "");
  const auto set = [this](const char* path, const std::string& sddl) {
    SecurityChange change;
    change.information = DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION;
    change.parts = *Parse(sddl);
    EXPECT_EQ(files_.SetSecurity(path, change), DWORD{ERROR_SUCCESS});
  };
  set("C:\\a", "D:P(A;;FA;;;BA)");
  set("C:\\b", "D:P(A;;FA;;;BA)");
  set("C:\\c", "D:P(A;;FR;;;BA)");
  const Node& root = *files_.VolumeAt('C')->root;
  EXPECT_EQ(root.Child("a")->security, root.Child("b")->security);
  EXPECT_NE(root.Child("a")->security, root.Child("c")->security);
}

TEST_F(NewDescriptors, FillTheGapsOfATreeThatIsAdded) {
  Volume volume;
  volume.root = std::make_shared<Node>();
  volume.root->attributes = FILE_ATTRIBUTE_DIRECTORY;
  const auto folder = volume.root->AddChild("folder", FILE_ATTRIBUTE_DIRECTORY);
  folder->security = Parse("O:BAG:SYD:PAI(A;OICI;FR;;;AU)");
  const auto below = folder->AddChild("below", FILE_ATTRIBUTE_DIRECTORY);
  const auto file = below->AddChild("a.txt", FILE_ATTRIBUTE_ARCHIVE);
  const auto added = files_.AddVolume(std::move(volume));
  EXPECT_EQ(DaclOf(*folder), "D:PAI(A;OICI;FR;;;AU)");
  EXPECT_EQ(DaclOf(*below), "D:AI(A;OICIID;FR;;;AU)");
  EXPECT_EQ(DaclOf(*file), "D:AI(A;ID;FR;;;AU)");
  EXPECT_TRUE(added->root->security);
}

}  // namespace
}  // namespace simulator
