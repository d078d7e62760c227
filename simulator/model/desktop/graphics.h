// Device contexts, stock brushes and icons: what their handles stand for.
#ifndef SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_
#define SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_

#include <windows.h>

#include <functional>
#include <map>
#include <mutex>
#include <optional>

#include "simulator/model/desktop/shown_dialog.h"

namespace simulator {

// By GetStockObject's number; the other way nothing for what is no stock object.
HGDIOBJ StockObject(int number);
std::optional<int> StockNumber(HGDIOBJ object);

// By the resource's number. The other way 0 for null; what is no icon aborts.
HICON IconOfNumber(int number);
int NumberOfIcon(HICON icon);

// Thread-safe. Handles are never used twice.
class DeviceContexts {
 public:
  // As every context begins: black on white, opaque.
  HDC Make();
  // False when there is no such context.
  bool Change(HDC context, const std::function<void(ShownColors&)>& change);
  // Its colours; the handle is good for nothing any more.
  ShownColors Remove(HDC context);

 private:
  std::mutex mutex_;
  std::map<HDC, ShownColors> contexts_;
  UINT_PTR next_ = 0x01010001;
};

}  // namespace simulator

#endif  // SIMULATOR_MODEL_DESKTOP_GRAPHICS_H_
