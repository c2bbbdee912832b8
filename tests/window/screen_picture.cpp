#include "window/screen_picture.h"

#include <stdexcept>

#include "platform/win32/handle.h"
#include "platform/win32/text_conversion.h"

namespace window {

namespace {

int WidthOf(const RECT& area) {
    return area.right - area.left;
}

int HeightOf(const RECT& area) {
    return area.bottom - area.top;
}

BITMAPINFOHEADER HeaderFor(const RECT& area) {
    BITMAPINFOHEADER header{};
    header.biSize = sizeof header;
    header.biWidth = WidthOf(area);
    header.biHeight = -HeightOf(area);  // from the top
    header.biPlanes = 1;
    header.biBitCount = 32;
    return header;
}

}  // namespace

ScreenPicture::ScreenPicture(const RECT& area) : area_(area) {
    BITMAPINFO format{};
    format.bmiHeader = HeaderFor(area);
    const HDC screen = ::GetDC(nullptr);
    const HDC canvas = ::CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = ::CreateDIBSection(canvas, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) throw std::runtime_error("no room for a picture of the screen");
    const HGDIOBJ before = ::SelectObject(canvas, bitmap);
    ::BitBlt(canvas, 0, 0, WidthOf(area), HeightOf(area), screen, area.left, area.top, SRCCOPY);
    ::GdiFlush();
    const auto* const first = static_cast<const std::uint32_t*>(bits);
    pixels_.assign(first, first + WidthOf(area) * HeightOf(area));
    ::SelectObject(canvas, before);
    ::DeleteObject(bitmap);
    ::DeleteDC(canvas);
    ::ReleaseDC(nullptr, screen);
}

ScreenPicture ScreenPicture::OfAll() {
    return ScreenPicture({0, 0, ::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)});
}

COLORREF ScreenPicture::At(int x, int y) const {
    if (x < area_.left || x >= area_.right || y < area_.top || y >= area_.bottom)
        throw std::out_of_range("a pixel outside of the picture");
    const std::uint32_t pixel =
        pixels_[static_cast<std::size_t>((y - area_.top) * WidthOf(area_) + x - area_.left)];
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

int ScreenPicture::Count(const RECT& area, COLORREF color) const {
    int count = 0;
    for (int y = area.top; y < area.bottom; ++y)
        for (int x = area.left; x < area.right; ++x) count += At(x, y) == color;
    return count;
}

bool ScreenPicture::Save(const std::string& path) const {
    BITMAPFILEHEADER file{};
    const BITMAPINFOHEADER header = HeaderFor(area_);
    const auto size = static_cast<DWORD>(pixels_.size() * sizeof pixels_[0]);
    file.bfType = 'B' | 'M' << 8;
    file.bfOffBits = sizeof file + sizeof header;
    file.bfSize = file.bfOffBits + size;
    const platform::win32::Handle target(::CreateFileW(platform::win32::Wide(path).c_str(),
                                                       GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                                       FILE_ATTRIBUTE_NORMAL, nullptr));
    const auto put = [&](const void* bytes, DWORD count) {
        DWORD written = 0;
        return ::WriteFile(target.Get(), bytes, count, &written, nullptr) && written == count;
    };
    return target.IsOpen() && put(&file, sizeof file) && put(&header, sizeof header) &&
           put(pixels_.data(), size);
}

}  // namespace window
