// The calls of dialogs' procedures. All are made on the dialog's own thread and without any lock.
#ifndef SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_
#define SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_

#include <windows.h>

#include "simulator/model/desktop/desktop.h"

namespace simulator {

// Tells the procedure its font and then WM_INITDIALOG. Null when the procedure destroyed the dialog
// meanwhile.
HWND MakeDialog(Desktop& desktop, WORD id, const DialogTemplate& source, DLGPROC procedure,
                LPARAM parameter);

// WM_DESTROY and WM_NCDESTROY; the window is there for both, its controls for the first.
void DestroyDialog(Desktop& desktop, HWND dialog);

// What a message to a dialog or one of its controls does there and then. Aborts for a message that
// is not honoured.
LRESULT Send(Desktop& desktop, HWND window, UINT message, WPARAM wparam, LPARAM lparam);

// A message out of the queue. Nothing happens for a window that is gone.
LRESULT Dispatch(Desktop& desktop, const MSG& message);

// For the rule that answers a message box: what a standing box lets through, the clock having been
// moved or not. Ends when nothing waits any more for the calling thread, or only WM_QUIT.
void DispatchBesideBox(Desktop& desktop);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_
