// Small drawings of filled outlines, and their pixels at any size. The program's icon is drawn
// with it when the program is built, so nothing here asks the system.
#pragma once

#include <cstdint>
#include <vector>

namespace platform::win32 {

// Drawings live in a square of 16 by 16 units; y grows downwards.
struct ArtPoint {
    double X;
    double Y;
};

using Outline = std::vector<ArtPoint>;

struct Shape {
    std::uint32_t Color;  // 0xRRGGBB
    Outline Edge;
};

// From back to front.
using Drawing = std::vector<Shape>;

struct Pixel {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    std::uint8_t Alpha = 0;  // 0 is clear
};

Outline RoundedRectangle(ArtPoint topLeft, ArtPoint bottomRight, double radius);

// `size` rows of `size` pixels from the top, with smooth edges; colours not multiplied by alpha.
std::vector<Pixel> Rasterize(const Drawing& drawing, int size);

}  // namespace platform::win32
