#include "simulator/model/desktop/graphics.h"

#include "simulator/model/common/unsupported.h"

namespace simulator {
namespace {

constexpr UINT_PTR kFirstStockObject = 0x01900010;
constexpr int kStockObjects = 20;

constexpr UINT_PTR kIconMark = 0x07;  // the low byte of an icon's handle

}  // namespace

HGDIOBJ StockObject(int number) {
  return reinterpret_cast<HGDIOBJ>(kFirstStockObject + static_cast<UINT_PTR>(number));
}

std::optional<int> StockNumber(HGDIOBJ object) {
  const UINT_PTR value = reinterpret_cast<UINT_PTR>(object);
  if (value < kFirstStockObject || value >= kFirstStockObject + kStockObjects) return std::nullopt;
  return static_cast<int>(value - kFirstStockObject);
}

HICON IconOfNumber(int number) {
  return reinterpret_cast<HICON>((static_cast<UINT_PTR>(number) << 8) | kIconMark);
}

int NumberOfIcon(HICON icon) {
  const UINT_PTR value = reinterpret_cast<UINT_PTR>(icon);
  if (value == 0) return 0;
  if ((value & 0xFF) != kIconMark || value >> 8 > 0xFFFF) Unsupported("a handle that is no icon");
  return static_cast<int>(value >> 8);
}

HDC DeviceContexts::Make() {
  const std::lock_guard lock(mutex_);
  const HDC context = reinterpret_cast<HDC>(next_);
  next_ += 0x10000;
  contexts_[context] = {RGB(0, 0, 0), RGB(255, 255, 255), OPAQUE, std::nullopt};
  return context;
}

bool DeviceContexts::Change(HDC context, const std::function<void(ShownColors&)>& change) {
  const std::lock_guard lock(mutex_);
  const auto found = contexts_.find(context);
  if (found == contexts_.end()) return false;
  change(found->second);
  return true;
}

ShownColors DeviceContexts::Remove(HDC context) {
  const std::lock_guard lock(mutex_);
  const ShownColors colors = contexts_.at(context);
  contexts_.erase(context);
  return colors;
}

}  // namespace simulator
