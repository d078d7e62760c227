#include "fault_sweep/mending.h"

#include <algorithm>
#include <set>
#include <utility>

namespace fault_sweep {
namespace {

constexpr std::string_view kLetter = "letter of ";
constexpr std::string_view kBoot = "boot ";
constexpr std::string_view kNone = "none";

ServerState Part(const ServerState& state, std::string_view prefix) {
  ServerState part;
  std::copy_if(state.begin(), state.end(), std::inserter(part, part.end()),
               [prefix](const auto& fact) { return fact.first.starts_with(prefix); });
  return part;
}

// "letter of disk 1, Databases" is "disk 1" and "Databases".
std::pair<std::string, std::string> DiskAndVolume(const std::string& name) {
  const size_t comma = name.find(", ");
  return {name.substr(kLetter.size(), comma - kLetter.size()), name.substr(comma + 2)};
}

bool HidesVolume(const Reference& reference, const ServerState& left) {
  const ServerState letters = Part(left, kLetter);
  return std::any_of(letters.begin(), letters.end(), [&](const auto& lost) {
    if (lost.second != kNone || reference.again.at(lost.first) == kNone) return false;
    return std::any_of(letters.begin(), letters.end(), [&lost](const auto& other) {
      return other.second != kNone &&
             DiskAndVolume(other.first).first == DiskAndVolume(lost.first).first;
    });
  });
}

bool RollsBack(const Reference& reference, const ServerState& left, const ServerState& after) {
  return Part(reference.again, kBoot) == Part(reference.before, kBoot) &&
         Part(left, kBoot) != Part(reference.before, kBoot) &&
         Part(left, kBoot) == Part(after, kBoot);
}

// Whether the difference is one of a letter, of a volume at a wrong one, or of a junction to one.
bool IsOfLetters(const Reference& reference, const ServerState& after, const std::string& name) {
  if (name.starts_with(kLetter)) return true;
  const auto wanted = reference.again.find(name);
  const ServerState letters = Part(reference.again, kLetter);
  return std::any_of(letters.begin(), letters.end(), [&](const auto& letter) {
    if (after.at(letter.first) == letter.second) return false;
    const std::string target = " -> " + letter.second + ":";
    return name.starts_with(DiskAndVolume(letter.first).second + ":") ||
           (wanted != reference.again.end() && wanted->second.find(target) != std::string::npos);
  });
}

}  // namespace

Mending CompareMended(const Reference& reference, const ServerState& left,
                      const ServerState& after) {
  const bool hides_volume = HidesVolume(reference, left);
  const bool rolls_back = RollsBack(reference, left, after);
  std::set<std::string> excuses;
  Mending mending;
  for (const std::string& name : Differences(reference.again, after)) {
    if (hides_volume && IsOfLetters(reference, after, name)) {
      excuses.insert("second volume");
    } else if (rolls_back && name.starts_with(kBoot)) {
      excuses.insert("roll-back");
    } else {
      mending.unmended.push_back(name);
    }
  }
  mending.excuses.assign(excuses.begin(), excuses.end());
  return mending;
}

}  // namespace fault_sweep
