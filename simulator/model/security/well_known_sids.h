// SIDs that are the same on every server.
// https://learn.microsoft.com/windows-server/identity/ad-ds/manage/understand-security-identifiers
#ifndef SIMULATOR_MODEL_SECURITY_WELL_KNOWN_SIDS_H_
#define SIMULATOR_MODEL_SECURITY_WELL_KNOWN_SIDS_H_

#include "simulator/model/security/descriptor.h"

namespace simulator {

inline const Sid kEveryone{1, {0}};
inline const Sid kLocal{2, {0}};
inline const Sid kConsoleLogon{2, {1}};
// An ACE for one of these two applies to objects that inherit it.
inline const Sid kCreatorOwner{3, {0}};
inline const Sid kCreatorGroup{3, {1}};
inline const Sid kOwnerRights{3, {4}};
inline const Sid kInteractive{5, {4}};
inline const Sid kAuthenticatedUsers{5, {11}};
inline const Sid kThisOrganization{5, {15}};
inline const Sid kLocalSystem{5, {18}};
inline const Sid kLocalAccount{5, {113}};
inline const Sid kLocalAdministrator{5, {114}};  // a local account in the group Administrators
inline const Sid kNtlmAuthentication{5, {64, 10}};
inline const Sid kAdministrators{5, {32, 544}};
inline const Sid kUsers{5, {32, 545}};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_WELL_KNOWN_SIDS_H_
