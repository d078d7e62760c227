// Device contexts, stock brushes and icons, and their handles.
#ifndef SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_
#define SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_

#include <windows.h>

#include <functional>
#include <map>
#include <mutex>
#include <optional>

#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {

// Convert between handles of stock objects and the numbers that GetStockObject takes. StockNumber
// returns nothing if the handle is not that of a stock object.
HGDIOBJ StockObject(int number);
std::optional<int> StockNumber(HGDIOBJ object);

// Convert between icon handles and resource numbers. NumberOfIcon returns 0 for null, and aborts if
// the handle is not that of an icon.
HICON IconOfNumber(int number);
int NumberOfIcon(HICON icon);

// Thread-safe. Handles are never reused.
class DeviceContexts {
 public:
  // Creates a context with the default colours: black on white, opaque.
  HDC Make();
  // Calls `change` with the context's colours. Returns false if there is no such context; otherwise
  // returns true.
  bool Change(HDC context, const std::function<void(ShownColors&)>& change);
  // Destroys the context and returns its colours. The handle is invalid afterwards.
  ShownColors Remove(HDC context);

 private:
  std::mutex mutex_;
  std::map<HDC, ShownColors> contexts_;
  UINT_PTR next_ = 0x01010001;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_
