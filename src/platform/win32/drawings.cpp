#include "platform/win32/drawings.h"

namespace platform::win32 {

namespace {

Drawing OpenFolder() {
    constexpr std::uint32_t kEdge = 0xA8741A;
    constexpr std::uint32_t kBack = 0xE3AE45;
    constexpr std::uint32_t kFront = 0xFFD97A;
    return {
        {kEdge, {{1, 2.5}, {6, 2.5}, {7.5, 4}, {13.5, 4}, {13.5, 7}, {1, 14}}},
        {kBack, {{1.8, 3.3}, {5.7, 3.3}, {7.2, 4.8}, {12.7, 4.8}, {12.7, 7}, {1.8, 12}}},
        {kEdge, {{4, 6.2}, {15.8, 6.2}, {12.8, 14}, {1, 14}}},
        {kFront, {{4.5, 7}, {14.7, 7}, {12.3, 13.2}, {2.2, 13.2}}},
    };
}

Outline RightArrow(double left, double right, double middle) {
    return {{left, middle - 0.5}, {right - 2.5, middle - 0.5}, {right - 2.5, middle - 2},
            {right, middle},      {right - 2.5, middle + 2},   {right - 2.5, middle + 0.5},
            {left, middle + 0.5}};
}

Outline LeftArrow(double left, double right, double middle) {
    Outline arrow = RightArrow(left, right, middle);
    for (ArtPoint& point : arrow) point.X = left + right - point.X;
    return arrow;
}

}  // namespace

Drawing GlyphDrawing(std::string_view name) {
    if (name == "folder-open") return OpenFolder();
    return {};
}

Drawing ProgramIcon() {
    constexpr std::uint32_t kBack = 0x0B3C70;
    constexpr std::uint32_t kFront = 0x1668B8;
    constexpr std::uint32_t kOut = 0xFFFFFF;
    constexpr std::uint32_t kHome = 0xA8F0FF;
    return {
        {kBack, RoundedRectangle({1, 1}, {8, 7}, 1)},
        {kBack, RoundedRectangle({1, 3}, {15, 9}, 1)},
        {kFront, RoundedRectangle({0, 4}, {16, 15}, 1.2)},
        {kOut, RightArrow(3, 13, 7.5)},
        {kHome, LeftArrow(3, 13, 11.5)},
    };
}

}  // namespace platform::win32
