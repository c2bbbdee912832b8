// Colours of controls as the drawing functions take them.
#pragma once

#include <windows.h>

#include "platform/forms.h"

namespace platform::win32 {

inline COLORREF Resolve(Color color) {
    constexpr Color kSystemColor = 0x80000000;
    return color & kSystemColor ? ::GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

inline void Fill(HDC canvas, const RECT& area, Color color) {
    ::SetDCBrushColor(canvas, Resolve(color));
    ::FillRect(canvas, &area, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
}

}  // namespace platform::win32
