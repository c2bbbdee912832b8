// Twips and the pixels of one monitor.
#pragma once

#include <windows.h>

#include "platform/forms.h"

namespace platform::win32 {

class Scale {
  public:
    explicit Scale(int dpi = USER_DEFAULT_SCREEN_DPI) : dpi_(dpi) {}

    int Dpi() const { return dpi_; }
    int Pixels(int twips) const { return ::MulDiv(twips, dpi_, kTwipsPerInch); }
    int Twips(int pixels) const { return ::MulDiv(pixels, kTwipsPerInch, dpi_); }

    // Edges are rounded rather than sizes, so that places that touch in twips touch in pixels.
    RECT Pixels(const Place& place) const {
        return {Pixels(place.Left), Pixels(place.Top), Pixels(place.Left + place.Width),
                Pixels(place.Top + place.Height)};
    }

    PointerPosition Twips(POINT point) const { return {Twips(point.x), Twips(point.y)}; }

  private:
    static constexpr int kTwipsPerInch = kTwipsPerPixel * USER_DEFAULT_SCREEN_DPI;
    int dpi_;
};

}  // namespace platform::win32
