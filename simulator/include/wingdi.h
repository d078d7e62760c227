// Colours of a device context.
#ifndef SIMULATOR_INCLUDE_WINGDI_H_
#define SIMULATOR_INCLUDE_WINGDI_H_

#include <windef.h>

#define RGB(red, green, blue)                                                    \
  (static_cast<COLORREF>(static_cast<BYTE>(red)) |                               \
   static_cast<COLORREF>(static_cast<COLORREF>(static_cast<BYTE>(green)) << 8) | \
   static_cast<COLORREF>(static_cast<COLORREF>(static_cast<BYTE>(blue)) << 16))
#define CLR_INVALID 0xFFFFFFFF

#define TRANSPARENT 1
#define OPAQUE 2

#define WHITE_BRUSH 0
#define NULL_BRUSH 5

COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
COLORREF WINAPI SetBkColor(HDC context, COLORREF color);
int WINAPI SetBkMode(HDC context, int mode);
HGDIOBJ WINAPI GetStockObject(int object);

#endif  // SIMULATOR_INCLUDE_WINGDI_H_
