// Colours of a device context.
#include <windows.h>

#include <functional>
#include <utility>

#include "simulator/api/call.h"
#include "simulator/model/desktop/dialogs.h"
#include "simulator/model/desktop/graphics.h"

namespace simulator {
namespace {

bool Change(const Call& call, HDC context, const std::function<void(ShownColors&)>& change) {
  const bool is_there = call.server().dialogs().contexts().Change(context, change);
  return call.Done(is_there ? ERROR_SUCCESS : ERROR_INVALID_HANDLE) != FALSE;
}

COLORREF SetColor(const char* name, HDC context, COLORREF color, COLORREF ShownColors::*which) {
  if (color > 0x00FFFFFF) Unsupported(std::string(name) + " of a palette's colour");
  const Call call(name, context, color);
  if (call.fails()) return CLR_INVALID;
  COLORREF before = color;
  const bool is_there =
      Change(call, context, [&](ShownColors& colors) { std::swap(before, colors.*which); });
  return is_there ? before : CLR_INVALID;
}

}  // namespace
}  // namespace simulator

using simulator::Call;
using simulator::ShownColors;
using simulator::Unsupported;

COLORREF WINAPI SetTextColor(HDC context, COLORREF color) {
  return simulator::SetColor("SetTextColor", context, color, &ShownColors::text);
}

COLORREF WINAPI SetBkColor(HDC context, COLORREF color) {
  return simulator::SetColor("SetBkColor", context, color, &ShownColors::background);
}

int WINAPI SetBkMode(HDC context, int mode) {
  if (mode != TRANSPARENT && mode != OPAQUE) Unsupported("SetBkMode: mode");
  const Call call("SetBkMode", context, mode);
  if (call.fails()) return 0;
  int before = mode;
  const bool is_there = simulator::Change(
      call, context, [&before](ShownColors& colors) { std::swap(before, colors.mode); });
  return is_there ? before : 0;
}

HGDIOBJ WINAPI GetStockObject(int object) {
  if (object != WHITE_BRUSH && object != NULL_BRUSH) Unsupported("GetStockObject: object");
  const Call call("GetStockObject", object);
  if (call.fails()) return nullptr;
  return call.Succeed(simulator::StockObject(object));
}
