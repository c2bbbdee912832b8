#include "platform/win32/label_painter.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/win32/colors.h"
#include "platform/win32/drawings.h"
#include "platform/win32/middle_ellipsis.h"
#include "platform/win32/text_conversion.h"

namespace platform::win32 {

namespace {

int TextWidth(HDC canvas, std::wstring_view text) {
    SIZE size{};
    ::GetTextExtentPoint32W(canvas, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

UINT TextFormat(const Look& look, std::wstring_view text) {
    UINT format = DT_NOPREFIX | DT_END_ELLIPSIS;
    if (look.Align == Alignment::Right) format |= DT_RIGHT;
    if (look.Align == Alignment::Center) format |= DT_CENTER;
    if (look.Wrap) return format | DT_WORDBREAK;
    if (text.find(L'\n') != std::wstring_view::npos) return format;
    return format | DT_SINGLELINE | DT_VCENTER;
}

std::wstring ShownText(HDC canvas, const Look& look, const RECT& area) {
    std::wstring text = Wide(look.Text);
    if (!look.MiddleEllipsis) return text;
    return ShortenMiddle(text, area.right - area.left,
                         [&](std::wstring_view part) { return TextWidth(canvas, part); });
}

Pixel Over(const Pixel& pixel, COLORREF ground) {
    const auto mix = [&](std::uint8_t over, std::uint8_t under) {
        return static_cast<std::uint8_t>((over * pixel.Alpha + under * (255 - pixel.Alpha)) / 255);
    };
    return {mix(pixel.Red, GetRValue(ground)), mix(pixel.Green, GetGValue(ground)),
            mix(pixel.Blue, GetBValue(ground)), 255};
}

}  // namespace

bool Look::operator==(const Look& other) const {
    return ::EqualRect(&Area, &other.Area) && Visible == other.Visible &&
           Enabled == other.Enabled && Bold == other.Bold &&
           MiddleEllipsis == other.MiddleEllipsis && Wrap == other.Wrap && Align == other.Align &&
           Back == other.Back && Fore == other.Fore && Text == other.Text;
}

Look LookOf(const Control& control, const RECT& area) {
    Look look;
    look.Area = area;
    look.Visible = control.Visible();
    look.Enabled = control.Enabled();
    look.Bold = control.Bold();
    look.Back = control.BackColor();
    look.Fore = control.ForeColor();
    look.Text = control.ShownText();
    if (const auto* label = dynamic_cast<const Label*>(&control)) {
        look.Align = label->Align();
        look.MiddleEllipsis = label->MiddleEllipsis();
        look.Wrap = label->Wrap();
    }
    if (const auto* image = dynamic_cast<const Image*>(&control)) look.Text = image->Glyph;
    return look;
}

void PaintLabel(HDC canvas, const Look& look, Color ground, const Fonts& fonts) {
    RECT area = look.Area;
    if (look.Back != ground) Fill(canvas, area, look.Back);
    const HGDIOBJ before = ::SelectObject(canvas, fonts.Get(look.Bold));
    if (look.Back != ground) ::InflateRect(&area, -TextWidth(canvas, L"0") / 2, 0);
    ::SetBkMode(canvas, TRANSPARENT);
    ::SetTextColor(canvas, look.Enabled ? Resolve(look.Fore) : ::GetSysColor(COLOR_GRAYTEXT));
    const std::wstring text = ShownText(canvas, look, area);
    ::DrawTextW(canvas, text.data(), static_cast<int>(text.size()), &area, TextFormat(look, text));
    ::SelectObject(canvas, before);
}

void PaintImage(HDC canvas, const Look& look, Color ground) {
    const RECT& area = look.Area;
    const int size = std::min(area.right - area.left, area.bottom - area.top);
    const Drawing drawing = GlyphDrawing(look.Text);
    if (size <= 0 || drawing.empty()) return;
    std::vector<std::uint32_t> picture;
    picture.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (const Pixel& pixel : Rasterize(drawing, size)) {
        const Pixel solid = Over(pixel, Resolve(ground));
        picture.push_back(
            static_cast<std::uint32_t>(solid.Red << 16 | solid.Green << 8 | solid.Blue));
    }
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = size;
    format.bmiHeader.biHeight = -size;  // from the top
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    const auto side = static_cast<DWORD>(size);
    ::SetDIBitsToDevice(canvas, (area.left + area.right - size) / 2,
                        (area.top + area.bottom - size) / 2, side, side, 0, 0, 0, side,
                        picture.data(), &format, DIB_RGB_COLORS);
}

}  // namespace platform::win32
