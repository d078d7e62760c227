// Conditions of callback entries: text, and the byte code that the entry holds.
// https://learn.microsoft.com/windows/win32/secauthz/security-descriptor-definition-language-for-conditional-aces-
#ifndef SIMULATOR_MODEL_SECURITY_SDDL_CONDITION_H_
#define SIMULATOR_MODEL_SECURITY_SDDL_CONDITION_H_

#include <windows.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "simulator/model/security/sddl_cursor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

// Takes "(...)". Nothing when that is no condition.
std::optional<std::string> TakeCondition(SddlCursor& text, const AccountDomains& domains);

// "(...)". Nothing when the byte code is not well-formed.
std::optional<std::string> ConditionText(std::string_view code, const AccountDomains& domains);

// The byte code: postfix, every token begins with one of these.
namespace condition {

inline constexpr std::string_view kSignature = "artx";

enum Token : BYTE {
  kPadding = 0x00,
  kInt8 = 0x01,
  kInt64 = 0x04,
  kString = 0x10,
  kOctets = 0x18,
  kComposite = 0x50,
  kSid = 0x51,
  kExists = 0x87,
  kNotExists = 0x8D,
  kAnd = 0xA0,
  kOr = 0xA1,
  kNot = 0xA2,
  kLocalAttribute = 0xF8,
};

struct Word {
  std::string_view text;
  BYTE token;
};

// A word that begins another one stands behind it.
inline constexpr auto kComparisons = std::to_array<Word>({
    {"==", 0x80},
    {"!=", 0x81},
    {"<=", 0x83},
    {"<", 0x82},
    {">=", 0x85},
    {">", 0x84},
    {"Contains", 0x86},
    {"Any_of", 0x88},
    {"Not_Contains", 0x8E},
    {"Not_Any_of", 0x8F},
});

inline constexpr auto kMemberships = std::to_array<Word>({
    {"Member_of_Any", 0x8B},
    {"Member_of", 0x89},
    {"Device_Member_of_Any", 0x8C},
    {"Device_Member_of", 0x8A},
    {"Not_Member_of_Any", 0x92},
    {"Not_Member_of", 0x90},
    {"Not_Device_Member_of_Any", 0x93},
    {"Not_Device_Member_of", 0x91},
});

inline constexpr auto kExistences = std::to_array<Word>({
    {"Exists", kExists},
    {"Not_Exists", kNotExists},
});

inline constexpr auto kAttributePrefixes = std::to_array<Word>({
    {"@USER.", 0xF9},
    {"@RESOURCE.", 0xFA},
    {"@DEVICE.", 0xFB},
    {"", kLocalAttribute},
});

// Whether the character stands for itself in the name of a local attribute, and of one of a claim.
bool IsSimpleNameCharacter(char c);
bool IsNameCharacter(char c);

}  // namespace condition
}  // namespace simulator

#endif  // SIMULATOR_MODEL_SECURITY_SDDL_CONDITION_H_
