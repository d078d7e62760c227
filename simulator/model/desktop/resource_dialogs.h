// The dialog templates of a resource script.
#ifndef SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOGS_H_
#define SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOGS_H_

#include <windows.h>

#include "simulator/model/desktop/dialog_template.h"
#include "simulator/model/desktop/resource_parser.h"

namespace simulator {

// From DIALOG or DIALOGEX to behind the END, as the resource compiler reads them: FONT and CAPTION
// add the styles that they stand for, each control has those of its statement. `language` is that
// of a LANGUAGE line within, when there is one. Statements other than STYLE, EXSTYLE, CAPTION and
// FONT, controls other than EDITTEXT, LTEXT, PUSHBUTTON and CONTROL, and help ids are errors.
DialogTemplate ReadDialog(ResourceParser& parser, LANGID* language);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_RESOURCE_DIALOGS_H_
