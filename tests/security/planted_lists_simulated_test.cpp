// What somebody can make the run do who can write the files that a volume was prepared with, and
// what he cannot. docs/security.md says what follows.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acl/acl_util.h"
#include "logger/b_logger.h"
#include "rehearsal/description/source_tree.h"
#include "restore/run.h"
#include "simulator/model/desktop/desktop.h"
#include "simulator/model/files/files.h"
#include "simulator/model/files/volume.h"
#include "simulator/model/processes/console.h"
#include "simulator/model/server.h"
#include "support/boot_tools_simulated.h"
#include "support/descriptors_simulated.h"
#include "support/process.h"
#include "support/simulated_diskpart.h"
#include "support/whole_run_simulated.h"

namespace restore {
namespace {

constexpr char kVictim[] = "C:\\Windows\\System32\\service.exe";
constexpr char kVictimSddl[] = "O:SYG:SYD:PAI(A;;FA;;;SY)(A;;FR;;;BU)";
constexpr char kPrepare[] = "D:\\vantoro_prepare";
constexpr char kScript[] =
    "C:\\Users\\Administrator\\AppData\\Local\\Temp\\EnumDiskpartInfos.script.1";

// A file of the system's on C, and a volume D, which alone was prepared.
class PlantedLists : public testing::Test {
 protected:
  PlantedLists() {
    server_.files().MountEmpty('D');
    server_.files().Write(kVictim, "program");
    tests::Secure(server_, kVictim, kVictimSddl);
    Plant("backup_info", "d\r\n\r\n\r\n1\r\n");
    Plant("juncbackup_d.dat", "");
    Plant("aclbackup_d.dat", "");
  }

  void Plant(const std::string& name, const std::string& content) {
    server_.files().Write(std::string(kPrepare) + "\\" + name, content);
  }
  void PlantAcls(const std::string& path, int attributes, const std::string& sddl) {
    Plant("aclbackup_d.dat",
          "\"" + path + "\"," + std::to_string(attributes) + ",\"" + sddl + "\"\r\n");
  }

  int32_t Run() {
    const HWND window = server_.desktop().CreateWindow();
    logger::BLogger logger("vantoro_restore", "");
    return RestoreWorker(logger, window, "", "");
  }

  std::string Log() {
    return server_.files()
        .Read("C:\\vantoro_restore\\Logs\\vantoro_restore_20240305.log")
        .value_or("no log");
  }
  std::string SddlOf(const std::string& path) { return tests::SddlOf(server_, path); }

  const tests::NewProcess process_;
  simulator::Server server_;
  tests::BootTools boot_tools_{server_};
  tests::ScriptedDiskpart diskpart_{server_, [](const std::string& commands) {
                                      tests::DiskpartReply reply;
                                      reply.output = commands == "list disk "
                                                         ? tests::DiskLine(1, "  40 GB")
                                                         : tests::VolumeLine('D', " 39 GB");
                                      return reply;
                                    }};
};

// What they can do.

TEST_F(PlantedLists, SetAnyDescriptorOnAnyVolume) {
  const std::string sddl = "O:S-1-5-21-1-2-3-1107G:BUD:PAI(A;;FA;;;WD)S:PAI(AU;SAFA;FA;;;BA)";
  PlantAcls(kVictim, 0, sddl);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(kVictim), sddl);
}

TEST_F(PlantedLists, ChangeAttributesOnAnyVolume) {
  PlantAcls(kVictim, FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY, "");
  EXPECT_EQ(Run(), 0);
  DWORD attributes = 0;
  EXPECT_EQ(server_.file_system().Attributes(kVictim, &attributes), DWORD{ERROR_SUCCESS});
  EXPECT_EQ(attributes, DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY});
}

TEST_F(PlantedLists, MakeAJunctionOnAnyVolume) {
  Plant("juncbackup_d.dat", "C:\\Windows\\Link;D:\\vantoro_prepare\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.files().JunctionTarget("C:\\Windows\\Link"), "\\??\\D:\\vantoro_prepare");
}

TEST_F(PlantedLists, DeleteAFileInAJunctionsPlaceOnAnyVolume) {
  tests::Secure(server_, kVictim, "O:BAG:SYD:PAI(A;;FA;;;BA)");
  Plant("juncbackup_d.dat", std::string(kVictim) + ";D:\\vantoro_prepare\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_FALSE(server_.files().Read(kVictim));
  EXPECT_EQ(server_.files().JunctionTarget(kVictim), "\\??\\D:\\vantoro_prepare");
}

TEST_F(PlantedLists, CountWhoeverOwnsThem) {
  PlantAcls(kVictim, 0, "D:PAI(A;;FA;;;WD)");
  for (const std::string path : {"", "\\backup_info", "\\juncbackup_d.dat", "\\aclbackup_d.dat"}) {
    tests::Secure(server_, kPrepare + path, "O:BUG:BUD:(A;;FA;;;BU)(A;;FR;;;BA)");
  }
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(kVictim), "O:SYG:SYD:PAI(A;;FA;;;WD)");
}

TEST_F(PlantedLists, CountBehindAJunction) {
  PlantAcls(kVictim, 0, "D:PAI(A;;FA;;;WD)");
  const std::string list =
      server_.files().Read(std::string(kPrepare) + "\\aclbackup_d.dat").value();
  server_.files().Remove(kPrepare);
  server_.files().Write("C:\\Users\\Public\\aclbackup_d.dat", list);
  server_.files().Write("C:\\Users\\Public\\juncbackup_d.dat", "");
  server_.files().MakeJunction(kPrepare, "C:\\Users\\Public");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(kVictim), "O:SYG:SYD:PAI(A;;FA;;;WD)");
}

// A condition of an entry holds any text. Whoever owned one file on the source server could give it
// such a descriptor, and so write a line of the list.
TEST_F(PlantedLists, HoldALineThatALongDescriptorCarries) {
  constexpr size_t kPiece = 8189;
  std::string first = "\"D:\\mine.txt\",32,\"O:BUG:BUD:(XA;;FA;;;BU;(@User.a Any_of {\"x\",\"";
  const size_t sddl_begin = first.find("O:BU");
  first += std::string(kPiece - first.size() - 3, 'x') + "\", ";

  std::string entries;
  while (entries.size() < 8000) entries += "(A;;FA;;;WD)";
  const std::string behind = ".exe\",\"D:PAI" + entries;
  const std::string in_front = "C:\\Windows\\System32\\";
  const std::string victim =
      in_front + std::string(kPiece - 1 - in_front.size() - behind.size(), 'v') + ".exe";
  const std::string second = "\"" + victim + "\",\"D:PAI" + entries;
  ASSERT_EQ(first.size(), kPiece);
  ASSERT_EQ(second.size(), kPiece);

  const std::string line = first + second + "\"}))";
  // All of it is a descriptor.
  server_.files().Write("D:\\whole.txt", "");
  tests::Secure(server_, "D:\\whole.txt", line.substr(sddl_begin));
  server_.files().Write("D:\\mine.txt", "");
  server_.files().Write(victim, "");
  tests::Secure(server_, victim, kVictimSddl);
  Plant("aclbackup_d.dat", line + "\"\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(victim), "O:SYG:SYD:PAI" + entries);
}

// A viewer may show the lone carriage return as a line end.
TEST_F(PlantedLists, PutACarriageReturnAndLowerCaseTextIntoTheLog) {
  Plant("backup_info", "!\r[2024-03-05 08:07:06] [Done]  Vantoro Restore Finished! time: 0s\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_NE(Log().find("\r\n[2024-03-05 08:07:06] [Error] ReadBackupInfo Wrong Content: "
                       "!\r[2024-03-05 08:07:06] [done]  vantoro restore finished! time: 0s\r\n"),
            std::string::npos)
      << Log();
}

// What they cannot do.

TEST_F(PlantedLists, SetNoNullList) {
  PlantAcls(kVictim, 0, "D:NO_ACCESS_CONTROL");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(kVictim), kVictimSddl);
}

TEST_F(PlantedLists, AreNoTemplates) {
  const std::string path = "D:\\%s%n%1$s%%.txt";
  server_.files().Write(path, "");
  server_.files().Write("D:\\%n%%", "");
  Plant("backup_info", "%s%n%n%n\r\n\r\n\r\n%d\r\n");
  Plant("juncbackup_d.dat", "D:\\%s%n;D:\\%n%%\r\n");
  PlantAcls(path, 0, "O:BAG:SYD:PAI(A;;FA;;;BU)");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(SddlOf(path), "O:BAG:SYD:PAI(A;;FA;;;BU)");
  EXPECT_NE(Log().find("ReadBackupInfo Wrong Content: %s%n%n%n\r\n"), std::string::npos) << Log();
}

TEST_F(PlantedLists, PutNothingElseIntoTheLogOrOntoTheConsole) {
  Plant("juncbackup_d.dat", "D:\\planted;C:\\Windows\r\nC:\\planted;C:\\planted\r\nplanted\r\n");
  PlantAcls("C:\\planted", 1, "planted");
  Plant("backup_info", "d planted\r\nplanted\r\nplanted\r\nplanted\r\n");
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ((Log() + server_.console().Text()).find("planted"), std::string::npos) << Log();
}

// A file of the name of a script, in the folder for temporary files.
using PlantedScript = PlantedLists;

TEST_F(PlantedScript, KeepsItsOwnerAndRightsWhenItIsWritten) {
  const std::string sddl = "O:BUG:BUD:PAI(A;;FA;;;BU)(A;;FA;;;BA)";
  server_.files().Write(kScript, "clean\r\n");
  tests::Secure(server_, kScript, sddl);
  EXPECT_EQ(Run(), 0);
  EXPECT_EQ(server_.files().Read(kScript), "list disk ");
  EXPECT_EQ(SddlOf(kScript), sddl);
}

// The letter comes right: the first character of the file counts, and nothing else.
TEST(PlantedBackupInfo, PutsOneLetterIntoAScriptAndNothingOntoACommandLine) {
  tests::WholeRun run("letterless_disk");
  simulator::Files& files = run.server().files();
  files.WriteOn(*run.sources().back().copy, "vantoro_prepare\\backup_info",
                "Hplanted & planted.exe | \"planted\" \r\nplanted\r\nplanted\r\nplanted\r\n");
  std::string scripts;
  files.Watch([&scripts](const std::string& path, std::string_view bytes) {
    if (path.find(".script.") != std::string::npos) scripts += bytes;
  });
  EXPECT_EQ(run.Run(), 0);
  files.Watch(nullptr);
  EXPECT_EQ(run.ClosingLines()[1], "letters: 2 of 2 right\n");
  EXPECT_NE(scripts.find("assign letter=h\r\r\n"), std::string::npos) << scripts;
  EXPECT_EQ(scripts.find("planted"), std::string::npos) << scripts;
  for (const std::string& arguments : run.server().calls().ArgumentsOf("CreateProcessA")) {
    EXPECT_EQ(arguments.find("planted"), std::string::npos) << arguments;
  }
}

}  // namespace
}  // namespace restore
