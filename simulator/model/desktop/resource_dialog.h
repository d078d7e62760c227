// The extended dialog templates of compiled resources.
// https://learn.microsoft.com/windows/win32/dlgbox/dlgtemplateex
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOG_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOG_H_

#include "simulator/model/common/byte_reader.h"
#include "simulator/model/desktop/dialog_template.h"

namespace simulator {

// Reads a DLGTEMPLATEEX. If the bytes end too early, `bytes` is no longer ok(). Aborts for what
// ReadResources does not support.
DialogTemplate ReadDialog(ByteReader& bytes);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOG_H_
