#include "restore/bcd_boot.h"

#include <algorithm>
#include <string>

#include "common/locations.h"
#include "common/paths.h"
#include "common/win/win_util.h"

namespace restore {
namespace {

using common::win::BCDBootInfo;
using common::win::WinUtil;

bool HasExtraLoaders(const BCDBootInfo& info) {
  return info.DisplayOrder.size() > 1 &&
         std::any_of(info.DisplayOrder.begin(), info.DisplayOrder.end(),
                     [&info](const std::string& loader) { return loader != info.DefaultId; });
}

// Returns true if the boot manager's locale differs from the one to rebuild with.
bool NeedsLocale(const BCDBootInfo& info, const std::string& default_locale) {
  // Oddity: last locale wins, see docs/oddities.md.
  return info.Locale != default_locale && info.RawLocale != info.Locale;
}

// Returns false at the first boot entry that cannot be deleted.
bool DeleteExtraLoaders(WinUtil& tools, const BCDBootInfo& info) {
  return std::all_of(info.DisplayOrder.begin(), info.DisplayOrder.end(),
                     [&](const std::string& loader) {
                       return loader == info.DefaultId || tools.DeleteBCDBootOSLoader(loader);
                     });
}

}  // namespace

bool RestoreBCDBoot(logger::Logger& logger) {
  WinUtil tools("", "", "");
  tools.SetLogger(&logger);
  BCDBootInfo info;
  if (!tools.GetBCDBootInfo(info)) {
    logger.Warn("RestoreBCDBoot Get BCD Boot Info Failed.");
    return false;
  }
  const bool has_extra_loaders = HasExtraLoaders(info);
  const bool needs_locale = NeedsLocale(info, tools.DefaultLocale());
  if (!has_extra_loaders && !needs_locale) return true;

  const std::string backup = common::JoinPath(common::GetCurrentDir(), "BCD_BAK");
  if (!tools.ExportBCDBoot(backup)) return false;
  if (has_extra_loaders && !DeleteExtraLoaders(tools, info)) {
    static_cast<void>(tools.ImportBCDBoot(backup));
    return false;
  }
  // Oddity: failed rebuild, see docs/oddities.md.
  if (needs_locale) static_cast<void>(tools.RemakeBCDBoot(info.Locale));
  return true;
}

}  // namespace restore
