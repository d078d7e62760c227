// Typical security descriptors of servers as text.
#ifndef TESTS_SUPPORT_SDDL_TEXTS_H_
#define TESTS_SUPPORT_SDDL_TEXTS_H_

#include <array>
#include <ostream>

#include "contract/wine_differences.h"

namespace tests {

struct SddlSample {
  const char* about;
  const char* text;
  const char* printed = nullptr;          // as Windows prints it, if different
  const char* wine_difference = nullptr;  // why Wine gives no valid result

  const char* Printed() const { return printed != nullptr ? printed : text; }
};

inline void PrintTo(const SddlSample& sample, std::ostream* out) { *out << sample.about; }

// S-1-5-80-956008885-... is TrustedInstaller, S-1-5-80-3880718306-... the service of a default
// instance of SQL Server, S-1-5-82-... an application pool of IIS, S-1-15-3-... a capability.
inline constexpr auto kSddlTexts = std::to_array<SddlSample>({
    // Volumes and the system's own folders.
    {"a system volume's root",
     "O:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "G:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "D:PAI(A;;LC;;;AU)(A;OICIIO;SDGXGWGR;;;AU)(A;;FA;;;SY)(A;OICIIO;GA;;;SY)(A;;FA;;;BA)"
     "(A;OICIIO;GA;;;BA)(A;OICI;0x1200a9;;;BU)"},
    {"a data volume's root",
     "O:BAG:SYD:(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)(A;OICIIO;GA;;;CO)(A;OICI;0x1200a9;;;BU)"
     "(A;CI;LC;;;BU)(A;CIIO;DC;;;BU)(A;;0x1200a9;;;WD)"},
    {"Windows",
     "O:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "G:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "D:PAI(A;OICIIO;GA;;;CO)(A;OICIIO;GA;;;SY)(A;;0x1301bf;;;SY)(A;OICIIO;GA;;;BA)"
     "(A;;0x1301bf;;;BA)(A;OICIIO;GXGR;;;BU)(A;;0x1200a9;;;BU)"
     "(A;CIIO;GA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;;0x1200a9;;;AC)(A;OICIIO;GXGR;;;AC)"},
    {"a file of system32",
     "O:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "G:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "D:PAI(A;;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;;0x1200a9;;;BA)(A;;0x1200a9;;;SY)(A;;0x1200a9;;;BU)(A;;0x1200a9;;;AC)"
     "(A;;0x1200a9;;;S-1-15-2-2)"},
    {"the registry's files", "O:BAG:SYD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"},
    {"Program Files",
     "O:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "G:S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464"
     "D:PAI(A;;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;CIIO;GA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;;0x1301bf;;;SY)(A;OICIIO;GA;;;SY)(A;;0x1301bf;;;BA)(A;OICIIO;GA;;;BA)"
     "(A;;0x1200a9;;;BU)(A;OICIIO;GXGR;;;BU)(A;OICIIO;GA;;;CO)(A;;0x1200a9;;;AC)"
     "(A;OICIIO;GXGR;;;AC)(A;;0x1200a9;;;S-1-15-2-2)(A;OICIIO;GXGR;;;S-1-15-2-2)"},
    {"a program's folder",
     "O:SYG:SYD:AI(A;ID;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;CIIOID;GA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;ID;FA;;;SY)(A;OICIIOID;GA;;;SY)(A;ID;FA;;;BA)(A;OICIIOID;GA;;;BA)"
     "(A;ID;0x1200a9;;;BU)(A;OICIIOID;GXGR;;;BU)(A;OICIIOID;GA;;;CO)(A;ID;0x1200a9;;;AC)"
     "(A;OICIIOID;GXGR;;;AC)"},
    {"a program's file",
     "O:SYG:SYD:AI(A;ID;FA;;;SY)(A;ID;FA;;;BA)(A;ID;0x1200a9;;;BU)(A;ID;0x1200a9;;;AC)"
     "(A;ID;0x1200a9;;;S-1-15-2-2)"},
    {"ProgramData",
     "O:SYG:SYD:PAI(A;OICIIO;GA;;;CO)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;BU)"
     "(A;CI;DCLCRPCR;;;BU)"},
    {"a folder below ProgramData",
     "O:SYG:SYD:AI(A;OICIID;FA;;;SY)(A;OICIID;FA;;;BA)(A;OICIIOID;GA;;;CO)"
     "(A;OICIID;0x1200a9;;;BU)(A;CIID;DCLCRPCR;;;BU)"},
    {"machine keys", "O:SYG:SYD:PAI(A;;FA;;;BA)(A;;0x12019f;;;WD)"},
    {"a machine key of an application pool", "O:SYG:SYD:PAI(A;;FA;;;SY)(A;;FA;;;BA)(A;;FR;;;NS)"},
    {"a folder for temporary files",
     "O:SYG:SYD:P(A;OICIIO;GA;;;CO)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;CI;DCWPRP;;;BU)",
     "O:SYG:SYD:P(A;OICIIO;GA;;;CO)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;CI;DCRPWP;;;BU)"},
    {"scheduled tasks",
     "O:BAG:SYD:PAI(A;OICIIO;GA;;;CO)(A;OICIIO;GA;;;SY)(A;;0x1301bf;;;SY)(A;OICIIO;GA;;;BA)"
     "(A;;0x1301bf;;;BA)(A;CI;0x100004;;;AU)(A;;0x100004;;;LS)(A;;0x100004;;;NS)"},
    {"event logs",
     "O:LSG:LSD:PAI(A;OICI;0x1200a9;;;AU)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"
     "(A;OICI;FA;;;S-1-5-80-880578595-1860270145-482643319-2788375705-1540778122)"},
    {"a volume's recycle bin", "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;;0x1201ad;;;AU)"},
    {"shadow copies", "O:BAG:SYD:P(A;;FA;;;SY)"},

    // Services.
    {"what a service may be asked",
     "D:(A;;CCLCSWRPWPDTLOCRRC;;;SY)(A;;CCDCLCSWRPWPDTLOCRSDRCWDWO;;;BA)(A;;CCLCSWLOCRRC;;;IU)"
     "(A;;CCLCSWLOCRRC;;;SU)S:(AU;FA;CCDCLCSWRPWPDTLOCRSDRCWDWO;;;WD)"},
    {"the service manager",
     "D:(A;;CC;;;AU)(A;;CCLCRPRC;;;IU)(A;;CCLCRPRC;;;SU)(A;;CCLCRPWPRC;;;SY)(A;;KA;;;BA)"
     "(A;;CC;;;AC)S:(AU;FA;KA;;;WD)(AU;OIIOFA;GA;;;WD)"},
    {"a service's data",
     "O:SYG:SYD:PAI(A;OICI;FA;;;S-1-5-80-1184457765-4068085190-3456807688-2200952327-3769537534)"
     "(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"},
    {"a key of the registry",
     "O:BAG:SYD:PAI(A;CI;KA;;;SY)(A;CI;KA;;;BA)(A;CI;KR;;;BU)(A;CIIO;KA;;;CO)(A;;KW;;;NS)"},

    // IIS.
    {"inetpub",
     "O:SYG:SYD:PAI(A;;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;OICIIO;GA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;;FA;;;SY)(A;OICIIO;GA;;;SY)(A;;FA;;;BA)(A;OICIIO;GA;;;BA)(A;;0x1200a9;;;BU)"
     "(A;OICIIO;GXGR;;;BU)(A;OICIIO;GA;;;CO)"},
    {"wwwroot",
     "O:SYG:SYD:AI(A;OICI;0x1200a9;;;IS)"
     "(A;ID;FA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;OICIIOID;GA;;;S-1-5-80-956008885-3418522649-1831038044-1853292631-2271478464)"
     "(A;ID;FA;;;SY)(A;OICIIOID;GA;;;SY)(A;ID;FA;;;BA)(A;OICIIOID;GA;;;BA)"
     "(A;ID;0x1200a9;;;BU)(A;OICIIOID;GXGR;;;BU)(A;OICIIOID;GA;;;CO)",
     nullptr, wine::kNewSidAliases},
    {"wwwroot, its group by number",
     "O:SYG:SYD:AI(A;OICI;0x1200a9;;;S-1-5-32-568)(A;OICIID;FA;;;BA)",
     "O:SYG:SYD:AI(A;OICI;0x1200a9;;;IS)(A;OICIID;FA;;;BA)", wine::kNewSidAliases},
    {"uploads of an application pool",
     "O:BAG:SYD:AI"
     "(A;OICI;0x1301bf;;;S-1-5-82-3006700770-424185619-1745488364-794895919-4004696415)"
     "(A;OICIID;FA;;;SY)(A;OICIID;FA;;;BA)(A;OICIID;0x1200a9;;;BU)"},
    {"an application pool's configuration",
     "O:BAG:SYD:PAI(A;;FA;;;S-1-5-80-4151353957-356578678-4163131872-800126167-2037860865)"
     "(A;;FA;;;SY)(A;;FA;;;BA)"
     "(A;;FR;;;S-1-5-82-3006700770-424185619-1745488364-794895919-4004696415)"},
    {"web.config", "O:BAG:SYD:AI(D;;DCLCRPCR;;;AN)(A;ID;FA;;;BA)(A;ID;FA;;;SY)(A;ID;FR;;;NS)"},

    // SQL Server.
    {"a folder of databases",
     "O:BAG:SYD:PAI(A;OICI;FA;;;S-1-3-4)"
     "(A;OICI;FA;;;S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003)"
     "(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)",
     "O:BAG:SYD:PAI(A;OICI;FA;;;OW)"
     "(A;OICI;FA;;;S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003)"
     "(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"},
    {"a database file",
     "O:S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003G:SYD:PAI(A;;FA;;;OW)"
     "(A;;FA;;;BA)(A;;FA;;;S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003)"},
    {"backups of databases",
     "O:BAG:SYD:PAI(A;OICIIO;GA;;;CO)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"
     "(A;OICI;FA;;;S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003)"
     "(A;OICI;0x1200a9;;;S-1-5-80-344959196-2060754871-2302487193-2804545603-1466107430)"},
    {"what SQL Server logs",
     "O:BAG:SYD:PAI(A;OICI;FA;;;S-1-5-80-3880718306-3832830129-1677859214-2598158968-1052248003)"
     "(A;OICI;0x1301bf;;;S-1-5-80-344959196-2060754871-2302487193-2804545603-1466107430)"
     "(A;OICI;0x1200a9;;;S-1-5-80-2652535364-2169709536-2857650723-2622804123-1107741775)"
     "(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"},

    // Users.
    {"the folder of profiles",
     "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;;0x1200a9;;;BU)(A;OICIIO;GXGR;;;BU)"
     "(A;;0x1200a9;;;WD)(A;OICIIO;GXGR;;;WD)"},
    {"a profile",
     "O:S-1-5-21-1004336348-1177238915-682003330-1013G:SYD:P(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"
     "(A;OICI;FA;;;S-1-5-21-1004336348-1177238915-682003330-1013)"},
    {"a profile's documents",
     "O:S-1-5-21-1004336348-1177238915-682003330-1013"
     "G:S-1-5-21-1004336348-1177238915-682003330-513D:AI(A;OICIID;FA;;;SY)(A;OICIID;FA;;;BA)"
     "(A;OICIID;FA;;;S-1-5-21-1004336348-1177238915-682003330-1013)"},
    {"the link of an old name, which nobody lists",
     "O:SYG:SYD:AI(D;;CC;;;WD)(A;ID;FA;;;SY)(A;ID;FA;;;BA)(A;ID;0x1200a9;;;BU)"},
    {"the public profile",
     "O:SYG:SYD:PAI(A;OICIIO;GA;;;CO)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;;0x1301bf;;;IU)"
     "(A;OICIIO;SDGXGWGR;;;IU)(A;;0x1301bf;;;SU)(A;OICIIO;SDGXGWGR;;;SU)(A;;0x1301bf;;;S-1-5-3)"
     "(A;OICIIO;SDGXGWGR;;;S-1-5-3)"},
    {"home folders",
     "O:BAG:SYD:PAI(A;OICIIO;FA;;;CO)(A;;0x1200af;;;AU)(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"},
    {"what the server's own Administrator owns", "O:LAG:SYD:(A;;FA;;;LA)(D;;FA;;;LG)", nullptr,
     wine::kAccountDomains},
    {"an owner that is gone",
     "O:S-1-5-21-3623811015-3361044348-30300820-1107"
     "G:S-1-5-21-3623811015-3361044348-30300820-513D:AI"
     "(A;;FA;;;S-1-5-21-3623811015-3361044348-30300820-1107)(A;ID;FA;;;BA)"},

    // Shares.
    {"a share of a department",
     "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICI;FA;;;SY)"
     "(A;OICI;0x1301bf;;;S-1-5-21-3623811015-3361044348-30300820-1201)"
     "(A;OICI;0x1200a9;;;S-1-5-21-3623811015-3361044348-30300820-1202)"},
    {"a folder that guests are kept out of",
     "O:BAG:SYD:AI(D;OICI;FA;;;BG)(A;OICI;0x1301bf;;;BU)(A;OICIID;FA;;;BA)(A;OICIID;FA;;;SY)"},
    {"a file that everybody is kept out of", "O:BAG:SYD:PAI(D;;FA;;;WD)"},
    {"a folder that nobody deletes", "O:BAG:SYD:AI(D;;0x10040;;;WD)(A;OICIID;FA;;;BA)",
     "O:BAG:SYD:AI(D;;DTSD;;;WD)(A;OICIID;FA;;;BA)"},
    {"a drop box", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;;0x100006;;;BU)(A;OICIIO;FA;;;CO)"},
    {"one level down and no further", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)(A;OICINP;FR;;;PU)"},
    {"a creator's group", "O:BAG:BAD:PAI(A;OICIIO;GA;;;CO)(A;OICIIO;GXGR;;;CG)(A;OICI;FA;;;SY)"},
    {"operators", "O:SYG:SYD:PAI(A;;FA;;;BO)(A;;FA;;;SO)(A;;FR;;;PO)(A;;FR;;;AO)(A;;FR;;;RE)"},
    {"callers by their way in",
     "O:BAG:SYD:(D;;FA;;;NU)(A;;FR;;;IU)(A;;FR;;;SU)(A;;FR;;;RC)(A;;FR;;;ED)(A;;FR;;;PS)"},
    {"groups of later systems",
     "O:BAG:SYD:(A;;FR;;;RM)(A;;FR;;;AA)(A;;FR;;;HA)(A;;FR;;;LU)"
     "(A;;FR;;;MU)(A;;FR;;;WR)(A;;FR;;;UD)(A;;FR;;;AS)",
     nullptr, wine::kNewSidAliases},
    {"an empty list, which grants nothing", "O:BAG:SYD:"},
    {"an empty list that is protected", "O:BAG:SYD:PAI"},
    {"no list, which grants everything", "O:BAG:SYD:NO_ACCESS_CONTROL", nullptr, wine::kNullList},
    {"an owner and nothing else", "O:BA"},
    {"a group and nothing else", "G:S-1-5-21-3623811015-3361044348-30300820-513"},
    {"nothing at all", ""},

    // Rights as numbers.
    {"a mask with bits that have no name", "O:BAG:SYD:(A;;0x1e01ff;;;BU)(A;;0x1000000;;;BA)"},
    {"all rights by number", "O:BAG:SYD:(A;;0x1f01ff;;;BA)(A;;0x120089;;;BU)",
     "O:BAG:SYD:(A;;FA;;;BA)(A;;FR;;;BU)"},
    {"a decimal mask", "O:BAG:SYD:(A;;1179817;;;BU)", "O:BAG:SYD:(A;;0x1200a9;;;BU)"},
    {"an octal mask", "O:BAG:SYD:(A;;04400251;;;BU)", "O:BAG:SYD:(A;;0x1200a9;;;BU)"},
    {"rights in another order", "O:BAG:SYD:(A;;RCSDWDWO;;;BA)(A;;GRGWGXGA;;;SY)",
     "O:BAG:SYD:(A;;SDRCWDWO;;;BA)(A;;GAGXGWGR;;;SY)"},
    {"rights to read and to run", "O:BAG:SYD:(A;;FRFX;;;BU)(A;;FRFWFXSD;;;AU)",
     "O:BAG:SYD:(A;;0x1200a9;;;BU)(A;;0x1301bf;;;AU)"},
    {"no right", "O:BAG:SYD:(A;;;;;BU)"},

    // Parts and spaces.
    {"parts in another order", "D:(A;;FA;;;BA)G:SYO:BA", "O:BAG:SYD:(A;;FA;;;BA)"},
    {"blanks before fields", " O:BA G:SY D: (A; ;FA; ; ; BA)", "O:BAG:SYD:(A;;FA;;;BA)"},
    {"flags in another order", "D:AIP(A;CIOIIDIO;FA;;;BA)", "D:PAI(A;OICIIOID;FA;;;BA)"},

    // Auditing and labels.
    {"failures audited", "O:BAG:SYD:PAI(A;OICI;FA;;;BA)S:AI(AU;OICIFA;FA;;;WD)", nullptr,
     wine::kSaclFlags},
    {"successes and failures audited",
     "O:BAG:SYD:(A;;FA;;;BA)S:PAI(AU;OICISAFA;DCLCRPDTCRSDWDWO;;;WD)(AU;SA;FR;;;AN)", nullptr,
     wine::kSaclFlags},
    {"inherited auditing",
     "O:BAG:SYD:AI(A;OICIID;FA;;;BA)S:AI(AU;OICIIDSA;SDWDWO;;;WD)(AU;IDFA;FA;;;BU)"
     "(AU;OICIIOIDFA;GA;;;BU)"},
    {"auditing alone", "S:(AU;SAFA;FA;;;WD)"},
    {"nothing audited", "O:BAG:SYD:(A;;FA;;;BA)S:"},
    {"lists that are to inherit by themselves",
     "O:SYG:SYD:ARAI(A;OICI;FA;;;BA)S:ARAI(AU;SA;FA;;;WD)", nullptr, wine::kSaclFlags},
    {"a low label", "O:BAG:SYD:(A;OICI;FA;;;BA)S:(ML;OICI;NW;;;LW)", nullptr, wine::kLabels},
    {"a label of the system", "O:SYG:SYD:(A;;FA;;;SY)S:AI(ML;;NRNWNX;;;SI)(AU;SA;FA;;;WD)",
     "O:SYG:SYD:(A;;FA;;;SY)S:AI(ML;;NWNRNX;;;SI)(AU;SA;FA;;;WD)", wine::kLabels},
    {"a high label", "S:(ML;;NW;;;HI)", nullptr, wine::kLabels},

    // Applications.
    {"a package's folder",
     "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)(A;OICI;0x1200a9;;;AC)"
     "(A;OICI;0x1301bf;;;S-1-15-2-1430448594-2639229838-973813799-439329657-1197984847-4069167804-"
     "1277922394)"},
    {"a capability",
     "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(A;OICI;0x1200a9;;;S-1-15-3-1)(A;OICI;0x1200a9;;;S-1-15-3-1024-"
     "3635283841-2530182609-996808640-1887759898-3848208603-3313616867-983405619-2501854204)"},
    {"programs of packages",
     "O:SYG:SYD:PAI(A;OICI;FA;;;SY)(XA;;0x1200a9;;;BU;(Exists WIN://SYSAPPID))", nullptr,
     wine::kEntryTypes},
    {"a program of one package",
     "O:SYG:SYD:PAI(A;;FA;;;SY)(XA;;0x1200a9;;;BU;(WIN://SYSAPPID Contains "
     "\"MICROSOFT.WINDOWSCALCULATOR_8WEKYB3D8BBWE\"))",
     nullptr, wine::kEntryTypes},

    // Conditions and attributes.
    {"a claim against a resource's attribute",
     "O:BAG:SYD:(XA;OICI;0x1301bf;;;AU;(@USER.Department == @RESOURCE.Department_MS))", nullptr,
     wine::kEntryTypes},
    {"groups together with a claim",
     "O:BAG:SYD:(XA;;FA;;;AU;((Member_of {SID(BA), SID(BO)}) && (@DEVICE.Bitlocker == 1)))",
     nullptr, wine::kEntryTypes},
    {"one of two values, denied",
     "O:BAG:SYD:(XD;;FA;;;WD;(!(@USER.Title Any_of {\"PM\", \"VP\"})))(A;;FA;;;BA)", nullptr,
     wine::kEntryTypes},
    {"a condition audited", "S:(XU;SA;FA;;;WD;(@USER.Clearance >= 0x1f))", nullptr,
     wine::kEntryTypes},
    {"a classified file",
     "O:BAG:SYD:AI(A;ID;FA;;;BA)S:AI(RA;ID;;;;WD;(\"Impact_MS\",TI,0x10000,3000))", nullptr,
     wine::kEntryTypes},
    {"attributes of every type",
     "S:(RA;;;;;WD;(\"A\",TS,0x0,\"HR\",\"Legal\"))(RA;;;;;WD;(\"B\",TU,0x0,7))"
     "(RA;;;;;WD;(\"C\",TB,0x0,1))(RA;;;;;WD;(\"D\",TD,0x0,BA))(RA;;;;;WD;(\"E\",TX,0x0,#01ff))"
     "(RA;;;;;WD;(\"F\",TI,0x0,-1))",
     nullptr, wine::kEntryTypes},
    {"a central access policy",
     "O:BAG:SYD:(A;;FA;;;BA)S:AI(SP;OICI;;;;S-1-17-1442530252-1178042555-1247349694-2318402534)",
     nullptr, wine::kEntryTypes},

    // Objects of a directory.
    {"a property that may be written",
     "O:BAG:SYD:AI(OA;CIIO;RPWP;bf967a7f-0de6-11d0-a285-00aa003049e2;"
     "bf967a86-0de6-11d0-a285-00aa003049e2;CO)(A;;FA;;;BA)",
     nullptr, wine::kEntryTypes},
    {"a right that is denied", "D:(OD;;CR;ab721a53-1e2f-11d0-9819-00aa0040529b;;WD)", nullptr,
     wine::kEntryTypes},
    {"children of one class audited", "S:(OU;CIIOIDSA;WP;;BF967AA5-0DE6-11D0-A285-00AA003049E2;WD)",
     "S:(OU;CIIOIDSA;WP;;bf967aa5-0de6-11d0-a285-00aa003049e2;WD)", wine::kEntryTypes},
});

}  // namespace tests

#endif  // TESTS_SUPPORT_SDDL_TEXTS_H_
