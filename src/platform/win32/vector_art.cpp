#include "platform/win32/vector_art.h"

#include <cmath>
#include <cstddef>

namespace platform::win32 {

namespace {

constexpr double kUnits = 16;
constexpr double kPi = 3.14159265358979323846;
constexpr int kSamples = 6;  // each way in a pixel

bool Contains(const Outline& edge, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0, j = edge.size() - 1; i < edge.size(); j = i++) {
        const ArtPoint& a = edge[i];
        const ArtPoint& b = edge[j];
        if ((a.Y > y) != (b.Y > y) && x < (b.X - a.X) * (y - a.Y) / (b.Y - a.Y) + a.X)
            inside = !inside;
    }
    return inside;
}

double Coverage(const Outline& edge, int column, int row, double unitsPerPixel) {
    int hits = 0;
    for (int sample = 0; sample < kSamples * kSamples; ++sample) {
        const double x = column + (sample % kSamples + 0.5) / kSamples;
        const double y = row + (sample / kSamples + 0.5) / kSamples;
        hits += Contains(edge, x * unitsPerPixel, y * unitsPerPixel);
    }
    return static_cast<double>(hits) / (kSamples * kSamples);
}

std::uint8_t Mix(std::uint8_t under, double underShare, std::uint32_t over, double overShare) {
    const double whole = underShare + overShare;
    return static_cast<std::uint8_t>(
        std::lround((under * underShare + (over & 0xFF) * overShare) / whole));
}

void Lay(Pixel& pixel, std::uint32_t color, double coverage) {
    if (coverage <= 0) return;
    const double below = pixel.Alpha / 255.0 * (1 - coverage);
    pixel.Red = Mix(pixel.Red, below, color >> 16, coverage);
    pixel.Green = Mix(pixel.Green, below, color >> 8, coverage);
    pixel.Blue = Mix(pixel.Blue, below, color, coverage);
    pixel.Alpha = static_cast<std::uint8_t>(std::lround((below + coverage) * 255));
}

}  // namespace

Outline RoundedRectangle(ArtPoint topLeft, ArtPoint bottomRight, double radius) {
    constexpr int kStepsPerCorner = 8;
    const ArtPoint centers[] = {{bottomRight.X - radius, topLeft.Y + radius},
                                {bottomRight.X - radius, bottomRight.Y - radius},
                                {topLeft.X + radius, bottomRight.Y - radius},
                                {topLeft.X + radius, topLeft.Y + radius}};
    Outline edge;
    for (int corner = 0; corner < 4; ++corner)
        for (int step = 0; step <= kStepsPerCorner; ++step) {
            const double angle =
                kPi / 2 * (corner - 1 + static_cast<double>(step) / kStepsPerCorner);
            edge.push_back({centers[corner].X + radius * std::cos(angle),
                            centers[corner].Y + radius * std::sin(angle)});
        }
    return edge;
}

std::vector<Pixel> Rasterize(const Drawing& drawing, int size) {
    std::vector<Pixel> pixels(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
    for (const Shape& shape : drawing) {
        auto pixel = pixels.begin();
        for (int row = 0; row < size; ++row)
            for (int column = 0; column < size; ++column)
                Lay(*pixel++, shape.Color, Coverage(shape.Edge, column, row, kUnits / size));
    }
    return pixels;
}

}  // namespace platform::win32
