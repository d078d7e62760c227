// Calls of dialog procedures. Every call is made on the dialog's own thread, without a lock held.
#ifndef SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_
#define SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_

#include <windows.h>

#include "simulator/model/desktop/desktop.h"

namespace simulator {

// Creates a dialog and sends WM_SETFONT and then WM_INITDIALOG to its procedure. Returns null if
// the procedure destroyed the dialog.
HWND MakeDialog(Desktop& desktop, WORD id, const DialogTemplate& source, DLGPROC procedure,
                LPARAM parameter);

// Destroys a dialog. Its procedure receives WM_DESTROY, then WM_NCDESTROY. The window exists during
// both messages, its controls only during the first.
void DestroyDialog(Desktop& desktop, HWND dialog);

// Sends a message to a dialog or one of its controls and returns the result. Aborts if the message
// is not supported.
LRESULT Send(Desktop& desktop, HWND window, UINT message, WPARAM wparam, LPARAM lparam);

// Dispatches a message from the queue. Has no effect if the window has been destroyed.
LRESULT Dispatch(Desktop& desktop, const MSG& message);

// Dispatches the messages that an open message box would dispatch. The rule that answers the box
// may call this, with or without having advanced the clock. Returns when no message other than
// WM_QUIT waits for the calling thread.
void DispatchBesideBox(Desktop& desktop);

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_DIALOG_PROCEDURES_H_
