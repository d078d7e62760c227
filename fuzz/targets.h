// The fuzz targets. Every target accepts any bytes, and aborts the process if a property of the
// code that it calls does not hold. Each target has a source file of its name in this folder, and
// its first inputs in corpus/.
#ifndef FUZZ_TARGETS_H_
#define FUZZ_TARGETS_H_

#include <array>
#include <string_view>

namespace fuzz {

// Functions of text alone.
void Text(std::string_view bytes);
void DiskList(std::string_view bytes);
void DiskDetail(std::string_view bytes);
void BootConfiguration(std::string_view bytes);
void AclLine(std::string_view bytes);
// Parsers of the simulated server.
void Sddl(std::string_view bytes);
void Descriptor(std::string_view bytes);
void Scenario(std::string_view bytes);
// Code that runs on a simulated server.
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
