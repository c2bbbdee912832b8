#include "window/screen_picture.h"

#include <fstream>
#include <stdexcept>

namespace window {

ScreenPicture::ScreenPicture(const RECT& area) : area_(area) {
    format_.biSize = sizeof format_;
    format_.biWidth = area.right - area.left;
    format_.biHeight = area.top - area.bottom;  // from the top
    format_.biPlanes = 1;
    format_.biBitCount = 32;
    BITMAPINFO info{};
    info.bmiHeader = format_;
    const HDC screen = ::GetDC(nullptr);
    const HDC canvas = ::CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(canvas, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) throw std::runtime_error("no room for a picture of the screen");
    const HGDIOBJ before = ::SelectObject(canvas, bitmap);
    ::BitBlt(canvas, 0, 0, format_.biWidth, -format_.biHeight, screen, area.left, area.top,
             SRCCOPY);
    ::GdiFlush();
    const auto* const first = static_cast<const std::uint32_t*>(bits);
    pixels_.assign(first, first - format_.biWidth * format_.biHeight);
    ::SelectObject(canvas, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(canvas);
    ::ReleaseDC(nullptr, screen);
}

ScreenPicture ScreenPicture::OfAll() {
    return ScreenPicture({0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)});
}

COLORREF ScreenPicture::At(LONG x, LONG y) const {
    if (!::PtInRect(&area_, {x, y})) throw std::out_of_range("a pixel outside of the picture");
    const std::uint32_t pixel =
        pixels_[static_cast<std::size_t>((y - area_.top) * format_.biWidth + x - area_.left)];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

bool ScreenPicture::Save(const std::string& path) const {
    const auto size = static_cast<DWORD>(pixels_.size() * sizeof pixels_[0]);
    BITMAPFILEHEADER header{};
    header.bfType = 'B' | 'M' << 8;
    header.bfOffBits = sizeof header + sizeof format_;
    header.bfSize = header.bfOffBits + size;
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&format_), sizeof format_);
    file.write(reinterpret_cast<const char*>(pixels_.data()), size);
    return file.flush().good();
}

}  // namespace window
