// What is fuzzed. Every target takes any bytes and ends the process when a property of what it
// calls does not hold. Each has a file of its name here, and its first inputs in corpus/.
#ifndef FUZZ_TARGETS_H_
#define FUZZ_TARGETS_H_

#include <array>
#include <string_view>

namespace fuzz {

// Pure text.
void Text(std::string_view bytes);
void DiskList(std::string_view bytes);
void DiskDetail(std::string_view bytes);
void BootConfiguration(std::string_view bytes);
void AclLine(std::string_view bytes);
// What the simulated server reads.
void Sddl(std::string_view bytes);
void Descriptor(std::string_view bytes);
void Scenario(std::string_view bytes);
// On a simulated server.
void CodePage(std::string_view bytes);
void BackupInfo(std::string_view bytes);
void JunctionList(std::string_view bytes);
void AclList(std::string_view bytes);
void Run(std::string_view bytes);
void Program(std::string_view bytes);

struct Target {
  const char* name;
  void (*function)(std::string_view bytes);
};

inline constexpr auto kTargets = std::to_array<Target>({
    {"text", Text},
    {"disk_list", DiskList},
    {"disk_detail", DiskDetail},
    {"boot_configuration", BootConfiguration},
    {"acl_line", AclLine},
    {"sddl", Sddl},
    {"descriptor", Descriptor},
    {"scenario", Scenario},
    {"code_page", CodePage},
    {"backup_info", BackupInfo},
    {"junction_list", JunctionList},
    {"acl_list", AclList},
    {"run", Run},
    {"program", Program},
});

}  // namespace fuzz

#endif  // FUZZ_TARGETS_H_
