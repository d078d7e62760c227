#include "common/files.h"

#include <direct.h>
#include <io.h>
#include <share.h>
#include <stdio.h>

#include "common/errors.h"
#include "common/owner.h"

namespace common {

bool Exists(const std::string& path) { return ::_access(path.c_str(), 0) == 0; }

bool CreateAndWriteFile(const std::string& path, const std::string& text) {
  const UniqueFile file(::_fsopen(path.c_str(), "w+", _SH_DENYNO));
  if (!file) {
    ReportErrno("CreateAndWriteFile", path);
    return false;
  }
  // Oddity: script on a full disk, see docs/oddities.md.
  return std::fwrite(text.data(), 1, text.size(), file.get()) >= text.size();
}

bool CreateDir(const std::string& path) {
  if (::_mkdir(path.c_str()) == 0) return true;
  ReportErrno("CreateDir", path);
  return false;
}

}  // namespace common
