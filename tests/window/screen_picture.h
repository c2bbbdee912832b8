// What the screen shows.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include <windows.h>

namespace window {

class ScreenPicture {
  public:
    // Takes a picture of a part of the screen, or of all of it.
    explicit ScreenPicture(const RECT& area);
    static ScreenPicture OfAll();

    bool operator==(const ScreenPicture& other) const { return pixels_ == other.pixels_; }

    // The colour (0x00BBGGRR) of a pixel, in coordinates of the screen.
    COLORREF At(LONG x, LONG y) const;

    // As a BMP file. False when it cannot be written.
    bool Save(const std::string& path) const;

  private:
    RECT area_;
    BITMAPINFOHEADER format_{};
    std::vector<std::uint32_t> pixels_;  // 0x00RRGGBB, row by row from the top
};

}  // namespace window
