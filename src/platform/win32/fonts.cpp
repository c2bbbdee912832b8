#include "platform/win32/fonts.h"

namespace platform::win32 {

namespace {

LOGFONTW MessageFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    ::SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                                 static_cast<UINT>(dpi));
    return metrics.lfMessageFont;
}

}  // namespace

Fonts::Fonts(int dpi) {
    LOGFONTW font = MessageFont(dpi);
    regular_ = ::CreateFontIndirectW(&font);
    font.lfWeight = FW_BOLD;
    bold_ = ::CreateFontIndirectW(&font);
}

Fonts::~Fonts() {
    ::DeleteObject(regular_);
    ::DeleteObject(bold_);
}

}  // namespace platform::win32
