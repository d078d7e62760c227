// What this Windows keeps of security descriptors.
//   kept_descriptors set LIST     sets what a list of lines "PATH",ATTRIBUTES,"SDDL" says
//   kept_descriptors show LIST    prints PATH, a tab and the descriptor that is there, for each
//   line
#include <windows.h>

#include <aclapi.h>
#include <sddl.h>

#include <fstream>
#include <iostream>
#include <string>

namespace {

constexpr SECURITY_INFORMATION kAll =
    OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;

void Set(std::string path, const std::string& sddl) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (::ConvertStringSecurityDescriptorToSecurityDescriptorA(sddl.c_str(), SDDL_REVISION_1,
                                                             &descriptor, nullptr) == FALSE) {
    return;
  }
  PSID owner = nullptr, group = nullptr;
  PACL dacl = nullptr;
  BOOL is_present = FALSE, is_defaulted = FALSE;
  ::GetSecurityDescriptorOwner(descriptor, &owner, &is_defaulted);
  ::GetSecurityDescriptorGroup(descriptor, &group, &is_defaulted);
  ::GetSecurityDescriptorDacl(descriptor, &is_present, &dacl, &is_defaulted);
  ::SetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, kAll, owner, group, dacl, nullptr);
  ::LocalFree(descriptor);
}

std::string Show(std::string path) {
  PSECURITY_DESCRIPTOR descriptor = nullptr;
  if (::GetNamedSecurityInfoA(path.data(), SE_FILE_OBJECT, kAll, nullptr, nullptr, nullptr, nullptr,
                              &descriptor) != ERROR_SUCCESS) {
    return "nothing there";
  }
  LPSTR text = nullptr;
  ::ConvertSecurityDescriptorToStringSecurityDescriptorA(descriptor, SDDL_REVISION_1, kAll, &text,
                                                         nullptr);
  const std::string sddl = text == nullptr ? "" : text;
  ::LocalFree(text);
  ::LocalFree(descriptor);
  return sddl;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::ifstream list(argv[2]);
  if (!list) return 1;
  for (std::string line; std::getline(list, line);) {
    const size_t path_end = line.find('"', 1);
    const size_t sddl_begin = line.find(",\"", path_end + 2) + 2;
    const std::string path = line.substr(1, path_end - 1);
    if (argv[1] == std::string("set")) {
      Set(path, line.substr(sddl_begin, line.rfind('"') - sddl_begin));
    } else {
      std::cout << path << '\t' << Show(path) << '\n';
    }
  }
  return 0;
}
